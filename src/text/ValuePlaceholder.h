#pragma once

#include <configuration/Parameter.h>

#include <string>

namespace kivo::configuration {

/// What follows the name of a parameter in usage and help texts: a space and the value name; nothing for a flag, or
/// when there is no value name.
inline std::string valuePlaceholder(Parameter const& parameter) {
    char const* valueName = parameter.getValueName();
    return valueName && parameter.getValueType() != Parameter::BOOLEAN_PARAMETER ? std::string(" ") + valueName : "";
}

} // namespace kivo::configuration
