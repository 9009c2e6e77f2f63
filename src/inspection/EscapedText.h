#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kivo::configuration {

/// A text with backslashes and control characters escaped as in C.
std::string escape(std::string_view text);

/// The number of characters of a UTF-8 text.
std::size_t widthOf(std::string_view text);

} // namespace kivo::configuration
