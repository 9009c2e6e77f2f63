#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Texts of users in the columns of a terminal.

namespace kivo::configuration {

/// The number of columns that a printable UTF-8 text takes, whatever the locale of the process is: a wide character
/// takes two, a combining one none. A byte that is no UTF-8 takes one.
std::size_t columnsOf(std::string_view text);

/// A text that a terminal shows and does not obey: controls become escapes of C, such as "\n", "\x1b" and "\u202e".
std::string escapeControls(std::string_view text);

/// As above, with white space as single blanks, and none at the ends.
std::string toOneLine(std::string_view text);

/// The words of a text in lines of a limited number of columns. A word that is longer than a line is cut. Takes time
/// linear in the length of the text.
/// @param text  in one line
/// @param width a line has at least one character, whatever the width is
std::vector<std::string> wrapWords(std::string_view text, std::size_t width);

} // namespace kivo::configuration
