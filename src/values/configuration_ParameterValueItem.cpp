#include "kernel/kvProcessInit.h"

#include <configuration/ParameterItem.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/ParameterValueItem.h>

#include "schema/ContractChecks.h"
#include "schema/NameComparison.h"
#include "values/ParameterValueItemImpl.h"

namespace kivo::configuration {

ParameterValueItem::ParameterValueItem(char const* id) : ParameterValueItem(std::make_unique<Impl>(), id) {}

ParameterValueItem::ParameterValueItem(ParameterItem const* item)
    : ParameterValueItem(std::make_unique<Impl>(), item) {}

ParameterValueItem::ParameterValueItem(ParameterValueItem const& other)
    : ParameterValueItem(std::make_unique<Impl>(), other) {}

ParameterValueItem::ParameterValueItem(ParameterValueItem const& other, CopyMethod) : ParameterValueItem(other) {}

ParameterValueItem::ParameterValueItem(std::unique_ptr<Impl> impl, char const* id) : mImpl(std::move(impl)) {
    if (id) {
        mImpl->mParameterItemId = id;
    }
}

ParameterValueItem::ParameterValueItem(std::unique_ptr<Impl> impl, ParameterItem const* item) : mImpl(std::move(impl)) {
    KIVO_REQUIRE_AS("mParameterItem != 0", item != nullptr);
    mImpl->mParameterItemId = item->getId();
    mImpl->mItemState = ASSIGNED;
    mImpl->mParameterItem = item;
}

ParameterValueItem::ParameterValueItem(std::unique_ptr<Impl> impl, ParameterValueItem const& other)
    : mImpl(std::move(impl)) {
    mImpl->copyItem(*other.mImpl);
}

ParameterValueItem& ParameterValueItem::operator=(ParameterValueItem const& other) {
    if (this != &other) {
        mImpl->copyItem(*other.mImpl);
        idChanged();
    }
    return *this;
}

ParameterValueItem::~ParameterValueItem() = default;

ParameterValueItem::Impl* ParameterValueItem::getImpl() const noexcept { return mImpl.get(); }

char const* ParameterValueItem::getParameterItemId() const {
    if (mImpl->mParameterItem) {
        return mImpl->mParameterItem->getId();
    }
    return mImpl->mParameterItemId.empty() ? nullptr : mImpl->mParameterItemId.c_str();
}

ParameterValueItem::ItemState ParameterValueItem::getItemState() const { return mImpl->mItemState; }

ParameterItem const* ParameterValueItem::getParameterItem() const { return mImpl->mParameterItem; }

ParameterValueGroup* ParameterValueItem::getParentGroup() const { return mImpl->mParentGroup; }

void ParameterValueItem::assignParameterItem(ParameterItem const* parameterItem) {
    KIVO_REQUIRE(parameterItem != 0);
    // Matching binds every item to a schema item of its own id: the group that holds it need not hear of that.
    if (!equalIgnoringCase(mImpl->mParameterItemId, parameterItem->getId())) {
        mImpl->mParameterItemId = parameterItem->getId();
        idChanged();
    }
    mImpl->mParameterItem = parameterItem;
    mImpl->mIsBoundToKind = false; // the derived class knows better
    mImpl->mItemState = ASSIGNED;
}

void ParameterValueItem::setParameterItemId(char const* parameterItemId) {
    KIVO_REQUIRE(parameterItemId != 0 && *parameterItemId != '\0');
    if (mImpl->mParameterItem) {
        return; // a bound item has the id of its schema item, and is never unbound
    }
    mImpl->mParameterItemId = parameterItemId;
    idChanged();
}

void ParameterValueItem::setItemState(ItemState state) { mImpl->mItemState = state; }

void ParameterValueItem::setParentGroup(ParameterValueGroup* parentGroup) {
    KIVO_REQUIRE(parentGroup != 0);
    mImpl->mParentGroup = parentGroup;
}

void ParameterValueItem::setHolder(ParameterValueGroup* group) {
    mImpl->mHolder = group;
    mImpl->mParentGroup = group;
}

ParameterValueGroup* ParameterValueItem::getHolder() const { return mImpl->mHolder; }

void ParameterValueItem::idChanged() {
    if (mImpl->mHolder) {
        mImpl->mHolder->childIdChanged();
    }
}

} // namespace kivo::configuration
