#pragma once

#include <functional>

namespace toolkit {

/// Does a tool's work. Messages of exceptions go to standard error, the tool's name before each line.
/// @return the exit status: 0; 1 when standard output could not be written; 2 when something was thrown
int runTool(char const* tool, std::function<void()> const& work);

} // namespace toolkit
