#pragma once

namespace kivo::configuration {

class Parameter;

/// The first text of a parameter's default, or null.
char const* defaultTextOf(Parameter const& parameter);

} // namespace kivo::configuration
