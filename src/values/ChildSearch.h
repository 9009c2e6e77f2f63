#pragma once

#include <configuration/ParameterValueItem.h>

namespace kivo::configuration {

class ParameterValue;

/// The first child of an id that is of one kind, or null. A parameter and a group may share an id: where only one of
/// the two can be meant, the other must not stand before it.
ParameterValueItem* findChild(ParameterValueGroup const& parent, char const* id, ParameterValueItem::ItemType type);

/// The first child group of an id, or null.
ParameterValueGroup* findChildGroup(ParameterValueGroup const& parent, char const* id);

/// The first child value of an id, or null.
ParameterValue* findChildValue(ParameterValueGroup const& parent, char const* id);

} // namespace kivo::configuration
