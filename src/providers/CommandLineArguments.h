#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kivo::configuration {

/// Whether an argument begins with a dash: then it is a flag.
bool isFlag(std::string const& argument);

/// An argument, and the argument after it where that is its value.
struct CommandLineArgument {
    std::string const* argument;
    std::string const* value; ///< null: it has none
    std::size_t index;        ///< of the argument, in the vector
};

/// Takes an argument vector apart. The argument after a flag is the flag's value, unless it begins with a dash, too.
/// @param arguments the program's name first, which is left out; must outlive the result
std::vector<CommandLineArgument> pairArguments(std::vector<std::string> const& arguments);

} // namespace kivo::configuration
