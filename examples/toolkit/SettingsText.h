#pragma once

#include <string>

namespace kivo::configuration {
class ParameterGroup;
class ValueGroup;
} // namespace kivo::configuration

namespace toolkit {

/// All settings of a group and of the containers in it, in the order of their description, one a line; defaults are
/// marked as such.
/// @throws kivo::configuration::ConfigurationException a label that its enumeration does not have: labels are looked up
///         when they are read, not before
std::string describeSettings(kivo::configuration::ParameterGroup const& group,
                             kivo::configuration::ValueGroup const& values);

} // namespace toolkit
