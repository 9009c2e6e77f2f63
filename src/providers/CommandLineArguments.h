#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace kivo::configuration {

class ParameterErrors;
class ParameterValueGroup;
class Specification;

/// A tool's arguments as texts.
struct ArgumentTexts {
    std::vector<std::string> texts; ///< trimmed, the program's name first, which is left out
    /// The index that each of them had in the vector that the tool was started with; empty: as they are counted.
    std::vector<unsigned long> indexes;

    unsigned long indexOf(std::size_t position) const {
        return position < indexes.size() ? indexes[position] : position;
    }
};

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

/// An argument without white space around it; null counts as empty.
std::string trimArgument(char const* argument);

/// What is said of an argument that belongs to no flag.
std::string composeUnexpectedArgument(std::string const& argument);

/// The tree of no arguments.
std::unique_ptr<ParameterValueGroup> makeArguments();

/// The values that arguments give, named by flags as typed.
/// @param flags     STRICT_RECOGNITION
/// @param collected takes what an argument throws, which is then left out; null: it throws
/// @throws as CommandLineValueProvider::setArguments()
std::unique_ptr<ParameterValueGroup> parseArguments(ArgumentTexts const& arguments, int flags,
                                                    ParameterErrors* collected);

/// The values of arguments as those of a specification's group.
/// @param flags     RESOLVE_FLAG_NAMES
/// @param collected takes what ambiguous flags throw, which then stay as they are; null: they throw
/// @throws as CommandLineValueProvider::getValues()
std::unique_ptr<ParameterValueGroup> assignArguments(ParameterValueGroup const& arguments,
                                                     Specification const& specification, int flags,
                                                     ParameterErrors* collected);

} // namespace kivo::configuration
