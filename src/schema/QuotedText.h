#pragma once

#include <string>
#include <string_view>

namespace kivo::configuration {

/// A text in double quotes, as messages show names and values.
inline std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

} // namespace kivo::configuration
