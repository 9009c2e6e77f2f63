#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kivo::configuration {

class ParameterErrors;
class ParameterValue;
class ParameterValueGroup;
class Specification;

/// A tool's arguments in GNU style, as they were given: only a specification tells which of them are values.
struct GnuArguments {
    std::vector<std::string> texts;     ///< the program's name first
    std::vector<unsigned long> indexes; ///< of the texts, in the vector that the tool was started with
    bool hasVersionFlag = false;        ///< whether "--version" asks for the version
};

/// What arguments give for a specification.
struct GnuValues {
    std::unique_ptr<ParameterValueGroup> values; ///< those of the specification's group, bound where they are known
    /// What is asked for by flags that the specification does not have: "help", "version". See HelpRequest.h.
    std::vector<std::unique_ptr<ParameterValue>> requests;
};

/// An argument that is a flag.
struct GnuFlag {
    std::string_view name;                 ///< without dashes
    std::optional<std::string_view> value; ///< what follows the equals sign
};

/// After this argument there are no flags.
inline constexpr std::string_view END_OF_FLAGS = "--";

/// Takes an argument apart. A lone dash is a word. @return nothing for a word
std::optional<GnuFlag> parseGnuFlag(std::string_view argument);

/// Splits arguments for a specification.
/// @param flags  RESOLVE_FLAG_NAMES
/// @param faults takes all that is wrong with them, each with the argument that it is about, which is then left out
GnuValues splitGnuArguments(GnuArguments const& arguments, Specification const& specification, int flags,
                            ParameterErrors& faults);

/// Forgets a flag, each time it is given, with its values. @param name as typed, without dashes; letter case is ignored
/// @return whether it was there
bool removeGnuFlag(GnuArguments& arguments, Specification const& specification, std::string_view name);

} // namespace kivo::configuration
