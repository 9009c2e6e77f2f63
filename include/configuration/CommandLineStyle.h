#pragma once

/// @file
/// How a tool's command line is written. Both styles are described in docs/command-line.md.

namespace kivo::configuration {

enum CommandLineStyle {
    /// "-name value": one dash, no equals sign. A value never begins with a dash. White space around arguments is
    /// dropped, and the settings of sections cannot be given. The default.
    PLAIN_COMMAND_LINE = 0,
    /// "--name value", "--name=value", "--section.name=value", "--no-name", with one dash or two. Arguments are taken
    /// as they are. "-h" and "--help" ask for help.
    GNU_COMMAND_LINE = 1
};

} // namespace kivo::configuration
