#pragma once

#include <configuration/ParameterValueGroup.h>

#include "schema/LazyItemIndex.h"
#include "schema/StoredOrigin.h"
#include "values/ParameterValueItemImpl.h"

#include <memory>
#include <string_view>
#include <vector>

namespace kivo::configuration {

/// The state of a group of values.
class ParameterValueGroup::Impl final : public ParameterValueItem::Impl {
public:
    /// The text that the item has itself: a look-up need not go to the schema for it.
    static std::string_view idOf(ParameterValueItem const& item) { return item.mImpl->mParameterItemId; }

    static void setHolder(ParameterValueItem& item, ParameterValueGroup& group) { item.setHolder(&group); }

    ParameterValueItem* first(std::string_view id) const { return mIndex.first(mItems, id); }

    std::vector<std::unique_ptr<ParameterValueItem>> mItems;
    LazyItemIndex<ParameterValueItem, idOf> mIndex;
    StoredOrigin mOrigin;
};

} // namespace kivo::configuration
