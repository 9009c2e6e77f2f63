#include "kernel/kvProcessInit.h"

#include "values/GroupEditing.h"

#include <configuration/ParameterValueGroup.h>

namespace kivo::configuration {

std::vector<std::unique_ptr<ParameterValueItem>> takeItems(ParameterValueGroup& group) {
    std::vector<std::unique_ptr<ParameterValueItem>> taken(group.getNumberOfItems());
    while (auto const count = group.getNumberOfItems()) { // from the end: nothing behind has to move up
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
