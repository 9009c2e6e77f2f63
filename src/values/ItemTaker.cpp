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

std::vector<std::unique_ptr<ParameterValueItem>> ItemTaker::takeAll(ParameterValueGroup& group) {
    group.mImpl->mIndex.drop();
    return std::exchange(group.mImpl->mItems, {});
}

ItemTaker::~ItemTaker() {
    if (mGroup && mPosition > 0) {
        std::erase(mGroup->mImpl->mItems, nullptr);
    }
}

} // namespace kivo::configuration
