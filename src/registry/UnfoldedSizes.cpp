#include "kernel/kvProcessInit.h"

#include "registry/UnfoldedSizes.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterGroup.h>

#include "schema/ItemKinds.h"

#include <algorithm>

namespace kivo::configuration {

UnfoldedSize const& UnfoldedSizes::of(ParameterGroup const& group) { return measure(group, group, 1); }

UnfoldedSize const& UnfoldedSizes::measure(ParameterGroup const& group, ParameterGroup const& outermost,
                                           unsigned long level) {
    if (auto const known = mSizes.find(&group); known != mSizes.end()) {
        return known->second;
    }
    if (level > UnfoldedSize::MAX_LEVELS) {
        throw ConfigurationException("Group \"%s\" unfolds to too many levels", outermost.getId());
    }
    UnfoldedSize size;
    auto const count = group.getNumberOfItems();
    for (unsigned long i = 0; i < count; ++i) {
        auto const* const item = group.getItem(i);
        ++size.items;
        if (auto const* const inner = asGroup(item)) {
            auto const& below = measure(*inner, outermost, level + 1);
            size.items = std::min(size.items + below.items, UnfoldedSize::MAX_ITEMS + 1);
            size.levels = std::max(size.levels, below.levels + 1);
        }
    }
    return mSizes[&group] = size;
}

} // namespace kivo::configuration
