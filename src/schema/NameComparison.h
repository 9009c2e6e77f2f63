#pragma once

// The one rule by which ids, names and other keys are compared: letters A to Z equal a to z, every other byte stands
// for itself, in every locale. Nothing here allocates.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace kivo::configuration {

/// A letter A to Z in lower case; any other byte as it is.
constexpr unsigned char foldCase(char c) noexcept {
    return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
}

/// Negative, zero or positive as `a` stands before, with or after `b`: bytes compare as unsigned, a prefix comes first.
constexpr int compareIgnoringCase(std::string_view a, std::string_view b) noexcept {
    auto const common = a.size() < b.size() ? a.size() : b.size();
    for (std::size_t i = 0; i < common; ++i) {
        if (int const difference = foldCase(a[i]) - foldCase(b[i]); difference != 0) {
            return difference;
        }
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

/// Names, eight bytes at a time: look-ups spend most of their time here.
namespace name_blocks {

inline constexpr std::size_t SIZE = sizeof(std::uint64_t);

/// foldCase() on eight bytes at once: the high bit of every byte that holds A to Z is found by two additions that do
/// not carry into the next byte, and moved to the bit that makes a letter small.
constexpr std::uint64_t fold(std::uint64_t bytes) noexcept {
    constexpr std::uint64_t eachByte = 0x0101010101010101u;
    auto const low = bytes & (0x7f * eachByte);
    auto const atLeastA = low + ((0x80 - 'A') * eachByte);
    auto const aboveZ = low + ((0x7f - 'Z') * eachByte);
    auto const letters = ~bytes & (atLeastA ^ aboveZ) & (0x80 * eachByte);
    return bytes | (letters >> 2);
}

/// Eight bytes, folded.
inline std::uint64_t load(char const* position) noexcept {
    std::uint64_t bytes;
    std::memcpy(&bytes, position, SIZE);
    return fold(bytes);
}

/// All bytes of a text of fewer than eight, folded, each of them at least once: texts of one size are equal exactly
/// when their blocks are.
inline std::uint64_t loadShort(std::string_view text) noexcept {
    auto const byte = [text](std::size_t position) {
        return static_cast<std::uint64_t>(static_cast<unsigned char>(text[position]));
    };
    auto const size = text.size();
    if (size >= 4) {
        std::uint32_t first;
        std::uint32_t last;
        std::memcpy(&first, text.data(), sizeof(first));
        std::memcpy(&last, text.data() + size - sizeof(last), sizeof(last));
        return fold(first | (static_cast<std::uint64_t>(last) << 32));
    }
    return size == 0 ? 0 : fold(byte(0) | (byte(size / 2) << 8) | (byte(size - 1) << 16));
}

/// Whether eight bytes of two names are the same. Mostly they are to the bit.
inline bool areSame(char const* a, char const* b) noexcept {
    std::uint64_t first;
    std::uint64_t second;
    std::memcpy(&first, a, SIZE);
    std::memcpy(&second, b, SIZE);
    return first == second || fold(first) == fold(second);
}

} // namespace name_blocks

/// Whether two names are the same name.
inline bool equalIgnoringCase(std::string_view a, std::string_view b) noexcept {
    using namespace name_blocks;
    if (a.size() != b.size()) {
        return false;
    }
    if (a.size() < SIZE) {
        return loadShort(a) == loadShort(b);
    }
    auto const last = a.size() - SIZE; // the last block overlaps the one before it
    for (std::size_t i = 0; i < last; i += SIZE) {
        if (!areSame(a.data() + i, b.data() + i)) {
            return false;
        }
    }
    return areSame(a.data() + last, b.data() + last);
}

/// Whether a name begins with a text.
inline bool beginsIgnoringCase(std::string_view name, std::string_view beginning) noexcept {
    return name.size() >= beginning.size() && equalIgnoringCase(name.substr(0, beginning.size()), beginning);
}

/// A hash that is the same for names that are the same. It differs from process to process, so that nobody can prepare
/// names that collide.
std::size_t hashIgnoringCase(std::string_view name) noexcept;

/// Orders the keys of a container; looks texts up without building a string.
struct CaseInsensitiveLess {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const noexcept { return compareIgnoringCase(a, b) < 0; }
};

} // namespace kivo::configuration
