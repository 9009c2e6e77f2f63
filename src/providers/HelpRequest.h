#pragma once

#include <memory>

namespace kivo::configuration {

class ParameterValue;
class ParameterValueGroup;
class StoredOrigin;

/// The values by which a user asks for help instead of running the tool, with those that say how much of it.
inline constexpr char const* HELP = "help";
inline constexpr char const* QUIET = "quiet";
inline constexpr char const* NO_TITLE = "notitle";
/// The value by which a user asks for the tool's version instead of running it.
inline constexpr char const* VERSION = "version";

/// Whether a group holds a value of a name that reads as true.
/// @throws ConfigurationException "\"<name>\" is not a parameter value": a group has that name
bool readsAsTrue(ParameterValueGroup const& group, char const* name);

/// A value that is true and asks for something that a specification need not declare: it is bound to a bool parameter
/// of the library's own. @param name HELP or VERSION
std::unique_ptr<ParameterValue> makeRequest(char const* name, StoredOrigin const& origin);

/// Whether a group holds what makeRequest(VERSION) makes. Other values of that name are settings of tools.
bool asksForVersion(ParameterValueGroup const& group);

} // namespace kivo::configuration
