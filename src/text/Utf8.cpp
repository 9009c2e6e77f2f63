#include "kernel/kvProcessInit.h"

#include "text/Utf8.h"

#include <algorithm>

namespace kivo::configuration {

namespace {

bool continuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

} // namespace

std::size_t sizeOfCharacter(std::string_view text) {
    auto const first = static_cast<unsigned char>(text[0]);
    std::size_t const size = first < 0xC2 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF5 ? 4 : 1;
    bool const isWhole = size <= text.size() && std::ranges::all_of(text.substr(1, size - 1), continuesCharacter);
    return isWhole ? size : 1;
}

char32_t characterOf(std::string_view text) {
    auto const size = sizeOfCharacter(text);
    char32_t const first = static_cast<unsigned char>(text[0]);
    char32_t character = size == 1 ? first : first & (0x7FU >> size);
    for (char const byte : text.substr(1, size - 1)) {
        character = character << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    return character;
}

bool isControl(char32_t character) {
    auto const isBetween = [=](char32_t first, char32_t last) { return character >= first && character <= last; };
    return character < 0x20 || isBetween(0x7F, 0x9F) || character == 0x61C || isBetween(0x200E, 0x200F) ||
           isBetween(0x2028, 0x202E) || isBetween(0x2066, 0x2069);
}

} // namespace kivo::configuration
