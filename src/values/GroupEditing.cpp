#include "kernel/kvProcessInit.h"

#include "values/GroupEditing.h"

#include <configuration/ParameterValueGroup.h>

#include <memory>
#include <vector>

namespace kivo::configuration {

void destroyItems(ParameterValueGroup& group, std::unordered_set<ParameterValueItem const*> const& items) {
    std::vector<std::unique_ptr<ParameterValueItem>> taken;
    taken.reserve(group.getNumberOfItems());
    while (auto const count = group.getNumberOfItems()) {
        auto* last = group.getItem(count - 1);
        group.removeItem(count - 1);
        taken.emplace_back(last);
    }
    for (auto item = taken.rbegin(); item != taken.rend(); ++item) {
        if (!items.contains(item->get())) {
            group.addItem(item->release());
        }
    }
}

} // namespace kivo::configuration
