#pragma once

#include <cstddef>
#include <string_view>

namespace kivo::configuration {

/// The number of bytes of the UTF-8 character that a text begins with; 1 for a byte that begins none.
/// @param text not empty
std::size_t sizeOfCharacter(std::string_view text);

/// The character that a text begins with, of one that is no UTF-8 the byte. @param text not empty
char32_t characterOf(std::string_view text);

/// Whether a character does something instead of being seen: a control of ASCII, or of those that Latin-1 and Unicode
/// have at 128 to 159; an end of a line or paragraph; a mark that changes the direction of the text around it.
bool isControl(char32_t character);

} // namespace kivo::configuration
