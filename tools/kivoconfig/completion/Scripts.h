#pragma once

namespace kivoconfig {

// The files tool.bash and tool.zsh: %TOOL% stands for a tool's name, %FUNCTION% for the name of a function, %SPEC% for
// a quoted word.
extern char const* const BASH_SCRIPT;
extern char const* const ZSH_SCRIPT;

} // namespace kivoconfig
