#pragma once

#include <ostream>
#include <string_view>

namespace kivo::configuration {

/// What a width leaves beside what is taken of it; 0 when there is no room.
constexpr unsigned long roomBeside(unsigned long taken, unsigned long width) {
    return width > taken ? width - taken : 0;
}

/// Writes a text in lines of limited length, each with a line feed.
///
/// A line ends at a line feed or carriage return that is in reach, else before the last break character in reach, else
/// where the width ends. One white-space character at the break is dropped; any other begins the next line. Line ends
/// in a text that fits as it stands, and those directly at the beginning of a line, are written as they are.
///
/// The time taken is linear in the length of the text.
///
/// @param start           column at which the first line begins; nothing is written for it
/// @param width           column at which lines end; where it leaves no room, lines have one character
/// @param indent          further columns that the second line and all after it are indented by
/// @param breakCharacters where a line may end
void wordWrap(std::ostream& output, std::string_view text, unsigned long start, unsigned long width,
              unsigned long indent, std::string_view breakCharacters);

} // namespace kivo::configuration
