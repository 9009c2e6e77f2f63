#pragma once

#include <configuration/ParameterGroup.h>

#include "schema/ItemKinds.h"
#include "schema/LazyItemIndex.h"
#include "schema/ParameterItemImpl.h"

#include <string_view>
#include <vector>

namespace kivo::configuration {

/// The state of a group.
class ParameterGroup::Impl final : public ParameterItem::Impl {
public:
    Impl(ItemsExclusiveType itemsExclusive, GroupType groupType)
        : mItemsExclusive(itemsExclusive), mGroupType(groupType) {}

    static std::string_view idOf(ParameterItem const& item) { return item.getId(); }

    /// Whether a walk over a group shows the group, then each of its items, and nothing else.
    static bool isFlat(ParameterGroup const& group) { return group.mImpl->mNumberOfOthers == 0 && isPlainGroup(group); }

    std::vector<ParameterItem*> mItems;
    unsigned long mNumberOfOthers = 0; // items that are not plain parameters
    ItemsExclusiveType mItemsExclusive;
    GroupType mGroupType;
    LazyItemIndex<ParameterItem, idOf> mIndex;
};

} // namespace kivo::configuration
