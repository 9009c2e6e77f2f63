#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Manager.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterVisitor.h>

#include "schema/ContractChecks.h"
#include "schema/ParameterGroupImpl.h"
#include "schema/ParameterItemFinder.h"

#include <algorithm>

namespace kivo::configuration {

ParameterGroup::ParameterGroup(char const* id, char const* name, char const* description, bool optional,
                               ItemsExclusiveType itemsExclusive, bool unbounded, GroupType groupType)
    : ParameterItem(std::make_unique<Impl>(itemsExclusive, groupType), id, name, description, optional, unbounded),
      mImpl(static_cast<Impl*>(getImpl())) {}

ParameterGroup::~ParameterGroup() = default;

ParameterItem::ItemType ParameterGroup::getItemType() const { return PARAMETER_GROUP; }

bool ParameterGroup::isOptional() const { return ParameterItem::isOptional(); }

bool ParameterGroup::isUnbounded() const { return ParameterItem::isUnbounded(); }

char const* ParameterGroup::getId() const { return ParameterItem::getId(); }

char const* ParameterGroup::getName() const { return ParameterItem::getName(); }

char const* ParameterGroup::getDescription() const { return ParameterItem::getDescription(); }

void ParameterGroup::setDescription(char const* description) { ParameterItem::setDescription(description); }

bool ParameterGroup::accept(ParameterVisitor& visitor) const {
    if (!visitor.visitGroupStart(*this)) {
        return false;
    }
    auto const count = getNumberOfItems();
    for (unsigned long i = 0; i < count; ++i) {
        getItem(i)->accept(visitor);
        if (i + 1 < count) {
            visitor.visitGroupMiddle(*this);
        }
    }
    visitor.visitGroupEnd(*this);
    return true;
}

bool ParameterGroup::isSpecialized() const { return false; }

char const* ParameterGroup::getItemTypeName() const {
    return mImpl->mGroupType == CONTAINER ? "Container" : "Constraint";
}

ParameterGroup::GroupType ParameterGroup::getGroupType() const { return mImpl->mGroupType; }

bool ParameterGroup::itemsAreExclusive() const { return mImpl->mItemsExclusive == ITEMS_MUTUALLY_EXCLUSIVE; }

unsigned long ParameterGroup::getNumberOfItems() const { return mImpl->mItems.size(); }

void ParameterGroup::addItem(ParameterItem* item) {
    KIVO_REQUIRE(item != 0);
    mImpl->mItems.push_back(item);
    mImpl->mIndex.added(*item);
    mImpl->mNumberOfOthers += !isPlainParameter(*item);
}

ParameterItem* ParameterGroup::removeItem(char const* id) {
    KIVO_REQUIRE(id != 0);
    auto* item = mImpl->mIndex.first(mImpl->mItems, id);
    if (item) {
        mImpl->mIndex.removing(*item);
        mImpl->mItems.erase(std::ranges::find(mImpl->mItems, item));
        mImpl->mNumberOfOthers -= !isPlainParameter(*item);
    }
    return item;
}

ParameterItem* ParameterGroup::getItem(unsigned long index) const {
    KIVO_REQUIRE(index < getNumberOfItems());
    return mImpl->mItems[index];
}

ParameterItem* ParameterGroup::getItem(char const* id, bool recursive) const {
    KIVO_REQUIRE(id != 0);
    if (!recursive || Impl::isFlat(*this)) {
        // A walk hands out const items; the group itself holds them as they were added.
        bool const isSought = recursive && equalIgnoringCase(getId(), id);
        return isSought ? const_cast<ParameterGroup*>(this) : mImpl->mIndex.first(mImpl->mItems, id);
    }
    ParameterItemFinder finder(id);
    accept(finder);
    return const_cast<ParameterItem*>(finder.getFound());
}

namespace {

void requireUniqueId(bool taken, char const* kind, char const* id) {
    if (taken) {
        throw ConfigurationException("%s id \"%s\" is not unique", kind, id);
    }
}

ParameterGroup* registerGroup(std::unique_ptr<ParameterGroup> group) {
    Manager::getInstance()->addParameterItem(group.get());
    return group.release();
}

} // namespace

ParameterGroup* ParameterGroup::CreateGroup(char const* id, char const* name, char const* description) {
    requireUniqueId(Manager::getInstance()->hasParameterItem(id, PARAMETER_GROUP), "Group", id);
    return registerGroup(
        std::make_unique<ParameterGroup>(id, name, description, true, ITEMS_NOT_EXCLUSIVE, false, CONSTRAINT));
}

ParameterGroup* ParameterGroup::CreateContainer(char const* id, char const* name, char const* description,
                                                bool optional, bool unbounded) {
    requireUniqueId(Manager::getInstance()->hasParameterItem(id, PARAMETER_GROUP), "Container", id);
    return registerGroup(
        std::make_unique<ParameterGroup>(id, name, description, optional, ITEMS_NOT_EXCLUSIVE, unbounded, CONTAINER));
}

ParameterGroup* ParameterGroup::CreateMutuallyExclusive(char const* id, char const* name, char const* description,
                                                        bool optional) {
    requireUniqueId(Manager::getInstance()->hasParameterItem(id, PARAMETER_GROUP), "Mutually Exclusive", id);
    return registerGroup(std::make_unique<ParameterGroup>(id, name, description ? description : " ", optional,
                                                          ITEMS_MUTUALLY_EXCLUSIVE, false, CONSTRAINT));
}

} // namespace kivo::configuration
