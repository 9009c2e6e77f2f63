#include "kernel/kvProcessInit.h"

#include "values/GroupEditing.h"

#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

#include "schema/StoredOrigin.h"
#include "values/ChildSearch.h"

namespace kivo::configuration {

ParameterValueGroup& addGroup(ParameterValueGroup& parent, ParameterGroup const& schemaGroup) {
    auto* group = std::make_unique<ParameterValueGroup>(&schemaGroup).release();
    parent.addItem(group);
    return *group;
}

ParameterValueGroup& findOrAddGroup(ParameterValueGroup& parent, char const* id, ParameterGroup const& schemaGroup) {
    auto* existing = findChildGroup(parent, id);
    return existing ? *existing : addGroup(parent, schemaGroup);
}

namespace {

void append(ParameterValue& target, ParameterValue const& source, bool ignoreDefault) {
    auto const count = source.getNumberOfValues(); // taken first: the two may be one, which grows
    for (unsigned long i = 0; i < count; ++i) {
        auto const origin = source.getStoredOrigin(i); // copied: the target may be the source, and move its texts
        target.addValueAt(source.getValue(i, ignoreDefault), origin);
    }
}

bool isValue(ParameterValueItem const& item) { return item.getItemType() == ParameterValueItem::PARAMETER_VALUE; }

} // namespace

void appendTexts(ParameterValue& target, ParameterValue const& source) { append(target, source, false); }

bool giveTextsToFirst(ParameterValueGroup const& group, ParameterValueItem const& child) {
    auto* const first = group.getItem(child.getParameterItemId());
    if (first == &child || !isValue(*first) || !isValue(child)) {
        return false;
    }
    append(static_cast<ParameterValue&>(*first), static_cast<ParameterValue const&>(child), true);
    return true;
}

} // namespace kivo::configuration
