#include "kernel/kvProcessInit.h"

#include "values/ChildSearch.h"

#include <configuration/ParameterValue.h>

#include "values/ParameterValueGroupImpl.h"

namespace kivo::configuration {

class ChildSearch {
public:
    static ParameterValueItem* first(ParameterValueGroup const& parent, char const* id,
                                     ParameterValueItem::ItemType type) {
        auto const& group = *parent.mImpl;
        return group.mIndex.first(group.mItems, id,
                                  [type](ParameterValueItem const& item) { return item.getItemType() == type; });
    }
};

ParameterValueGroup* findChildGroup(ParameterValueGroup const& parent, char const* id) {
    return static_cast<ParameterValueGroup*>(ChildSearch::first(parent, id, ParameterValueItem::PARAMETER_VALUE_GROUP));
}

ParameterValue* findChildValue(ParameterValueGroup const& parent, char const* id) {
    return static_cast<ParameterValue*>(ChildSearch::first(parent, id, ParameterValueItem::PARAMETER_VALUE));
}

} // namespace kivo::configuration
