#pragma once

#include <functional>

namespace toolkit {

/// Does a tool's work. The faults in what exceptions say go to standard error, one a line: the tool's name, where the
/// fault was given, if anywhere, the message, and what was probably meant.
/// @return the exit status: 0; 1 when standard output could not be written; 2 when something was thrown
int runTool(char const* tool, std::function<void()> const& work);

} // namespace toolkit
