#include "kernel/kvProcessInit.h"

#include "values/ItemTaker.h"

#include "values/ParameterValueGroupImpl.h"

#include <utility>

namespace kivo::configuration {

std::unique_ptr<ParameterValueItem> ItemTaker::take(ParameterValueItem const& item) {
    auto& items = mGroup->mImpl->mItems;
    for (auto position = mPosition; position < items.size(); ++position) {
        if (items[position].get() == &item) {
            if (mPosition == 0) {
                mGroup->mImpl->mIndex.drop();
            }
            mPosition = position + 1;
            return std::move(items[position]);
        }
    }
    return nullptr;
}

void ItemTaker::moveAll(ParameterValueGroup& from, ParameterValueGroup& to) {
    to = ParameterValueGroup(from, ParameterValueItem::SHALLOW_COPY); // the only step that can fail
    from.mImpl->mIndex.drop();
    to.mImpl->mItems = std::exchange(from.mImpl->mItems, {});
    for (auto const& item : to.mImpl->mItems) {
        ParameterValueGroup::Impl::setHolder(*item, to);
    }
}

void ItemTaker::destroy(ParameterValueGroup& group, std::unordered_set<ParameterValueItem const*> const& items) {
    group.mImpl->mIndex.drop();
    std::erase_if(group.mImpl->mItems, [&](auto const& item) { return items.contains(item.get()); });
}

ItemTaker::~ItemTaker() {
    if (mGroup && mPosition > 0) {
        std::erase(mGroup->mImpl->mItems, nullptr);
    }
}

} // namespace kivo::configuration
