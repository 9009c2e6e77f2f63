#pragma once

#include <cstdarg>
#include <string>

namespace kivo::configuration {

/// The text that printf would write, cut silently at 4,095 characters.
std::string formatMessage(char const* format, std::va_list arguments);

} // namespace kivo::configuration
