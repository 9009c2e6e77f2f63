#pragma once

// A parameter and a group may share an id: where only one of the two can be meant, these find it although the other
// stands before it.

namespace kivo::configuration {

class ParameterValue;
class ParameterValueGroup;

/// The first child group of an id, or null.
ParameterValueGroup* findChildGroup(ParameterValueGroup const& parent, char const* id);

/// The first child value of an id, or null.
ParameterValue* findChildValue(ParameterValueGroup const& parent, char const* id);

} // namespace kivo::configuration
