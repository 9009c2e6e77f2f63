#pragma once

namespace kivo::configuration {

class ParameterValueGroup;

/// The values by which a user asks for help instead of running the tool, with those that say how much of it.
inline constexpr char const* HELP = "help";
inline constexpr char const* QUIET = "quiet";
inline constexpr char const* NO_TITLE = "notitle";

/// Whether a group holds a value of a name that reads as true.
/// @throws ConfigurationException "\"<name>\" is not a parameter value": a group has that name
bool readsAsTrue(ParameterValueGroup const& group, char const* name);

} // namespace kivo::configuration
