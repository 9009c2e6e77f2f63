#include "kernel/kvProcessInit.h"

#include "values/GroupEditing.h"

#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

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
        target.addValue(source.getValue(i, false));
    }
}

std::vector<std::unique_ptr<ParameterValueItem>> takeItems(ParameterValueGroup& group) {
    std::vector<std::unique_ptr<ParameterValueItem>> taken(group.getNumberOfItems());
    while (auto const count = group.getNumberOfItems()) { // from the end: nothing has to move up
        auto* last = group.getItem(count - 1);
        group.removeItem(count - 1);
        taken[count - 1].reset(last);
    }
    return taken;
}

void destroyItems(ParameterValueGroup& group, std::unordered_set<ParameterValueItem const*> const& items) {
    for (auto& item : takeItems(group)) {
        if (!items.contains(item.get())) {
            group.addItem(item.release());
        }
    }
}

} // namespace kivo::configuration
