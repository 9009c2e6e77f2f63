#pragma once

#include <string>
#include <string_view>

namespace kivo::configuration {

/// A text with backslashes and control characters escaped as in C.
std::string escape(std::string_view text);

} // namespace kivo::configuration
