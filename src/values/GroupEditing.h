#pragma once

namespace kivo::configuration {

class ParameterGroup;
class ParameterValue;
class ParameterValueGroup;
class ParameterValueItem;

/// Adds a child group without children that is bound to a schema group.
ParameterValueGroup& addGroup(ParameterValueGroup& parent, ParameterGroup const& schemaGroup);

/// The first child group of an id; when there is none, one is added that is bound to a schema group.
ParameterValueGroup& findOrAddGroup(ParameterValueGroup& parent, char const* id, ParameterGroup const& schemaGroup);

/// Appends the texts of a value, as they read with defaults, to another one or to itself.
void appendTexts(ParameterValue& target, ParameterValue const& source);

/// Appends the texts of a child, without defaults, to the first child of the same id, if both are values.
/// @return whether the child can go
bool giveTextsToFirst(ParameterValueGroup const& group, ParameterValueItem const& child);

} // namespace kivo::configuration
