#pragma once

namespace kivo::configuration {

class ParameterErrors;
class ParameterGroup;
class ParameterValueGroup;

/// Checks the occurrences of repeating sections that a request does not look at: all but the first one of each group.
/// @param values completed
/// @param root   of their specification
void checkLaterOccurrences(ParameterValueGroup& values, ParameterGroup const& root, ParameterErrors& faults);

} // namespace kivo::configuration
