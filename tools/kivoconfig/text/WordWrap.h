#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kivoconfig {

/// The words of a text in lines of a limited number of characters. A word that is longer than a line is cut.
/// @param width more than 0
std::vector<std::string> wrapWords(std::string_view text, std::size_t width);

} // namespace kivoconfig
