#pragma once

#include <functional>

namespace toolkit {

/// Does a tool's work. What it throws goes to standard error, each line of the message behind the tool's name.
/// @return the exit status: 0, or 2 when something was thrown
int runTool(char const* tool, std::function<void()> const& work);

} // namespace toolkit
