#pragma once

#include <string>

namespace kivo::configuration {

class Parameter;
class ParameterErrors;
class SecretArguments;
struct GivenItem;

/// A text as reports show it. @param parameter what it was given for
std::string maskedText(Parameter const& parameter, std::string const& text);

/// How reports show a fault of a secret text; empty when they show it as it is.
/// @param item      what the fault is about, or null
/// @param arguments those of the command line
std::string maskedMessage(ParameterErrors const& faults, unsigned long index, GivenItem const* item,
                          SecretArguments const& arguments);

} // namespace kivo::configuration
