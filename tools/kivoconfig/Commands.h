#pragma once

#include "Call.h"
#include "ExitStatus.h"

#include <functional>
#include <span>

namespace kivoconfig {

/// Does a command's work.
using Work = std::function<ExitStatus()>;

/// A command of kivoconfig.
struct Command {
    char const* name;
    char const* summary;
    /// Adds the command's options. What it returns is called once when they are read; the call outlives it.
    Work (*prepare)(CommandOptions& options, Call& call);
    /// Whether it looks at arguments of the tool in question, which stand after "--".
    bool takesArguments = false;
    /// Whether the command prints nothing and succeeds when anything is wrong.
    bool isSilent = false;
};

/// All commands, in the order in which the help shows them.
std::span<Command const> allCommands();

} // namespace kivoconfig
