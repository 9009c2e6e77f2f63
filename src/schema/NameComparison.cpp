#include "kernel/kvProcessInit.h"

#include "schema/NameComparison.h"

#include <chrono>
#include <cstdint>

namespace kivo::configuration {

namespace {

/// Both halves of a 128-bit product: every bit of the result depends on every bit of the factors.
std::uint64_t multiplyMix(std::uint64_t a, std::uint64_t b) noexcept {
    __extension__ using Product = unsigned __int128;
    auto const product = static_cast<Product>(a) * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

/// The authors of names cannot know it: addresses are randomised, and the time is that of the start.
struct Seeds {
    Seeds() noexcept {
        auto const now = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
        auto const address = reinterpret_cast<std::uintptr_t>(this);
        first = multiplyMix(now ^ 0x9e3779b97f4a7c15u, address | 1);
        second = multiplyMix(first ^ address, 0xd1b54a32d192ed03u);
    }
    std::uint64_t first;
    std::uint64_t second;
};

} // namespace

std::size_t hashIgnoringCase(std::string_view name) noexcept {
    using namespace name_blocks;
    static Seeds const seeds;
    auto state = seeds.first ^ name.size();
    if (name.size() < SIZE) {
        return multiplyMix(state ^ loadShort(name), seeds.second);
    }
    auto const last = name.size() - SIZE; // the last block overlaps the one before it
    for (std::size_t i = SIZE; i < last; i += SIZE) {
        state = multiplyMix(state ^ load(name.data() + i), seeds.second);
    }
    return multiplyMix(state ^ load(name.data()), seeds.second ^ load(name.data() + last));
}

} // namespace kivo::configuration
