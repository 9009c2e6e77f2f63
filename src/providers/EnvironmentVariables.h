#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kivo::configuration {

/// An environment variable that may be a setting of a tool.
struct EnvironmentVariable {
    std::string name; ///< the tool's prefix included
    std::string text; ///< not empty: an empty variable counts as one that is not set
};

/// The variables of a tool, as they were at one moment.
struct EnvironmentVariables {
    std::string prefix;
    std::vector<EnvironmentVariable> variables; ///< in the order of the environment, each name once
};

/// The variables of this process whose names begin with a prefix and an underscore; none in a program that runs with
/// raised privileges, since its caller chose them.
/// @throws ConfigurationException "\"<prefix>\" is not a valid prefix of environment variables"
EnvironmentVariables readEnvironment(std::string_view prefix);

/// As above, of a list of texts "name=text" that ends with a null; the list may be null.
EnvironmentVariables readEnvironment(std::string_view prefix, char const* const* environment);

} // namespace kivo::configuration
