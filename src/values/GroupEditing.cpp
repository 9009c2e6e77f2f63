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

void appendTexts(ParameterValue& target, ParameterValue const& source) {
    auto const count = source.getNumberOfValues(); // taken first: the two may be one, which grows
    for (unsigned long i = 0; i < count; ++i) {
        auto const origin = source.getStoredOrigin(i); // copied: the target may be the source, and move its texts
        target.addValueAt(source.getValue(i, false), origin);
    }
}

} // namespace kivo::configuration
