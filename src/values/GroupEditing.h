#pragma once

namespace kivo::configuration {

class ParameterGroup;
class ParameterValue;
class ParameterValueGroup;

/// Adds a child group without children that is bound to a schema group.
ParameterValueGroup& addGroup(ParameterValueGroup& parent, ParameterGroup const& schemaGroup);

/// The first child group of an id; when there is none, one is added that is bound to a schema group.
ParameterValueGroup& findOrAddGroup(ParameterValueGroup& parent, char const* id, ParameterGroup const& schemaGroup);

/// Appends the texts of a value, as they read with defaults, to another one or to itself.
void appendTexts(ParameterValue& target, ParameterValue const& source);

} // namespace kivo::configuration
