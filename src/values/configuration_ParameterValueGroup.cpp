#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/ParameterValueVisitor.h>

#include "schema/ContractChecks.h"
#include "schema/ItemKinds.h"
#include "schema/LocatedException.h"
#include "values/ParameterValueGroupImpl.h"

#include <algorithm>

namespace kivo::configuration {

ParameterValueGroup::ParameterValueGroup(ParameterGroup const* group)
    : ParameterValueItem(std::make_unique<Impl>(), static_cast<ParameterItem const*>(group)),
      mImpl(static_cast<Impl*>(getImpl())) {
    mImpl->mIsBoundToKind = true;
}

ParameterValueGroup::ParameterValueGroup(char const* id)
    : ParameterValueItem(std::make_unique<Impl>(), id), mImpl(static_cast<Impl*>(getImpl())) {}

ParameterValueGroup::ParameterValueGroup(std::nullptr_t) : ParameterValueGroup(static_cast<char const*>(nullptr)) {}

ParameterValueGroup::ParameterValueGroup(ParameterValueGroup const& other) : ParameterValueGroup(other, DEEP_COPY) {}

ParameterValueGroup::ParameterValueGroup(ParameterValueGroup const& other, CopyMethod method)
    : ParameterValueItem(std::make_unique<Impl>(), other), mImpl(static_cast<Impl*>(getImpl())) {
    mImpl->mOrigin = other.mImpl->mOrigin;
    mImpl->mItems.reserve(other.mImpl->mItems.size()); // a shallow copy is mostly filled with as many
    if (method == DEEP_COPY) {
        for (auto const& item : other.mImpl->mItems) {
            mImpl->mItems.emplace_back(item->clone(DEEP_COPY))->setHolder(this);
        }
    }
}

ParameterValueGroup& ParameterValueGroup::operator=(ParameterValueGroup const& other) {
    if (this != &other) {
        // Copied first: the other may be below this group, and go with what it held.
        ParameterValueGroup copy(other);
        if (isAbove(other)) {
            copy.mImpl->mParentGroup = mImpl->mParentGroup;
        }
        ParameterValueItem::operator=(copy);
        mImpl->mOrigin = copy.mImpl->mOrigin;
        mImpl->mIndex.drop();
        mImpl->mItems.swap(copy.mImpl->mItems);
        for (auto const& item : mImpl->mItems) {
            item->setHolder(this);
        }
    }
    return *this;
}

ParameterValueGroup::~ParameterValueGroup() = default;

bool ParameterValueGroup::isAbove(ParameterValueItem const& item) const {
    auto const* holder = item.getHolder();
    while (holder && holder != this) {
        holder = holder->getHolder();
    }
    return holder;
}

char const* ParameterValueGroup::getParameterItemId() const { return ParameterValueItem::getParameterItemId(); }

ParameterValueItem::ItemType ParameterValueGroup::getItemType() const { return PARAMETER_VALUE_GROUP; }

bool ParameterValueGroup::accept(ParameterValueVisitor& visitor) {
    if (!visitor.visitGroupStart(*this)) {
        return false;
    }
    auto const& items = mImpl->mItems;
    if (visitor.isMutator()) {
        std::vector<ParameterValueItem*> snapshot;
        snapshot.reserve(items.size());
        std::ranges::transform(items, std::back_inserter(snapshot), [](auto const& item) { return item.get(); });
        for (auto* item : snapshot) {
            item->accept(visitor);
        }
    } else {
        auto const count = items.size();
        // A visitor that shortens the list breaks its promise; it must not make the walk leave the list.
        for (std::size_t i = 0; i < count && i < items.size(); ++i) {
            items[i]->accept(visitor);
        }
    }
    visitor.visitGroupEnd(*this);
    return true;
}

ParameterValueGroup* ParameterValueGroup::clone(CopyMethod method) const {
    return new ParameterValueGroup(*this, method);
}

void ParameterValueGroup::assignParameterItem(ParameterItem const* parameterItem) {
    KIVO_REQUIRE(parameterItem != 0);
    if (parameterItem->getItemType() != ParameterItem::PARAMETER_GROUP) {
        throw located(mImpl->mOrigin,
                      ConfigurationException("\"%s\" must be a parameter group", parameterItem->getName()));
    }
    ParameterValueItem::assignParameterItem(parameterItem);
    mImpl->mIsBoundToKind = asGroup(parameterItem);
}

ParameterGroup const* ParameterValueGroup::getParameterGroup() const {
    return mImpl->mIsBoundToKind ? static_cast<ParameterGroup const*>(mImpl->mParameterItem) : nullptr;
}

unsigned long ParameterValueGroup::getNumberOfItems() const { return mImpl->mItems.size(); }

void ParameterValueGroup::addItem(ParameterValueItem* item) {
    KIVO_REQUIRE(item != 0);
    std::unique_ptr<ParameterValueItem> owned(item);
    mImpl->mItems.push_back(std::move(owned));
    item->setHolder(this);
    mImpl->mIndex.added(*item);
}

void ParameterValueGroup::addValue(char const* parameterItemId, char const* value) {
    addValueAt(parameterItemId, value, StoredOrigin());
}

void ParameterValueGroup::addValue(char const* parameterItemId, char const* value, Origin const& origin) {
    addValueAt(parameterItemId, value, StoredOrigin(origin));
}

void ParameterValueGroup::addValueAt(char const* parameterItemId, char const* value, StoredOrigin const& origin) {
    KIVO_REQUIRE(parameterItemId != 0 && *parameterItemId != '\0');
    if (auto* existing = getValue(parameterItemId)) {
        existing->addValueAt(value, origin);
    } else {
        addItem(std::make_unique<ParameterValue>(parameterItemId, value, origin).release());
    }
}

ParameterValueItem* ParameterValueGroup::getItem(unsigned long index) const {
    KIVO_REQUIRE(index < getNumberOfItems());
    return mImpl->mItems[index].get();
}

ParameterValueItem* ParameterValueGroup::getItem(char const* parameterItemId) const {
    KIVO_REQUIRE(parameterItemId != 0);
    return mImpl->first(parameterItemId);
}

ParameterValueItem* ParameterValueGroup::getItem(ParameterItem const* parameterItem) const {
    KIVO_REQUIRE(parameterItem != 0);
    return getItem(parameterItem->getId());
}

ParameterValue* ParameterValueGroup::getValue(char const* name) const {
    KIVO_REQUIRE(name != 0 && strlen(name) > 0);
    auto* item = mImpl->first(name);
    if (item && item->getItemType() != PARAMETER_VALUE) {
        auto const* group = dynamic_cast<ParameterValueGroup const*>(item);
        throw located(group ? group->getStoredOrigin() : StoredOrigin(),
                      ConfigurationException("\"%s\" is not a parameter value", name));
    }
    return static_cast<ParameterValue*>(item);
}

ParameterValue* ParameterValueGroup::getValue(Parameter const* parameter) const {
    KIVO_REQUIRE(parameter != 0);
    return getValue(parameter->getName());
}

void ParameterValueGroup::removeItem(unsigned long index) {
    auto& mItems = mImpl->mItems;
    KIVO_REQUIRE(index < mItems.size());
    auto const position = mItems.begin() + static_cast<std::ptrdiff_t>(index);
    mImpl->mIndex.removing(**position);
    (*position)->setHolder(nullptr);
    static_cast<void>(position->release()); // the caller's now
    mItems.erase(position);
}

bool ParameterValueGroup::removeItem(char const* parameterItemId) {
    KIVO_REQUIRE(parameterItemId != 0);
    auto const* item = mImpl->first(parameterItemId);
    if (!item) {
        return false;
    }
    auto const position = std::ranges::find(mImpl->mItems, item, &std::unique_ptr<ParameterValueItem>::get);
    removeItem(static_cast<unsigned long>(position - mImpl->mItems.begin()));
    return true;
}

Origin ParameterValueGroup::getOrigin() const { return mImpl->mOrigin.toOrigin(); }

void ParameterValueGroup::setOrigin(Origin const& origin) { setStoredOrigin(StoredOrigin(origin)); }

StoredOrigin const& ParameterValueGroup::getStoredOrigin() const { return mImpl->mOrigin; }

void ParameterValueGroup::setStoredOrigin(StoredOrigin const& origin) { mImpl->mOrigin = origin; }

void ParameterValueGroup::childIdChanged() { mImpl->mIndex.drop(); }

} // namespace kivo::configuration
