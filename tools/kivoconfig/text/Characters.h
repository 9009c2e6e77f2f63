#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kivoconfig {

// Texts inside kivoconfig are UTF-8; text/CodePage.h converts what comes from outside.

/// Stands for what is no character.
inline constexpr char32_t REPLACEMENT = 0xfffd;

/// Takes the next character off a text that is not empty. Bytes that are no UTF-8 count as a REPLACEMENT each.
char32_t takeCharacter(std::string_view& rest);
/// Appends a character.
void appendCharacter(std::string& text, char32_t character);
/// The number of characters of a text.
std::size_t countCharacters(std::string_view text);

/// Whether a character does something instead of being seen: controls (line ends and tabs, too), marks that change the
/// direction of the text around them, and what Unicode says is no character.
bool isControl(char32_t character);

/// A text for people to read, in one line: controls as escapes of C, such as "\x1b" and "\u202e".
std::string printable(std::string_view text);

/// A text for people to read, each of its lines as printable() has it. The last one, too, ends with a line feed.
std::string printableLines(std::string_view text);

/// A text in one line: white space becomes single blanks.
std::string collapsed(std::string_view text);

/// A text with the letters A to Z in lower case, in which the library compares names.
std::string folded(std::string_view text);

} // namespace kivoconfig
