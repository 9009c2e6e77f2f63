#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Manager.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterVisitor.h>

#include "schema/ContractChecks.h"
#include "schema/LazyItemIndex.h"
#include "schema/LoadAhead.h"
#include "schema/ParameterItemFinder.h"
#include "schema/ParameterItemImpl.h"
#include "schema/SubtreeIndex.h"

#include <algorithm>
#include <atomic>
#include <vector>

namespace kivo::configuration {

namespace {

std::string_view idOf(ParameterItem const& item) { return item.getId(); }

} // namespace

class ParameterGroup::Impl final : public ParameterItem::Impl {
public:
    Impl(ItemsExclusiveType itemsExclusive, GroupType groupType)
        : mItemsExclusive(itemsExclusive), mGroupType(groupType) {}

    std::vector<ParameterItem*> mItems;
    unsigned long mNumberOfGroups = 0; // among the items
    ItemsExclusiveType mItemsExclusive;
    GroupType mGroupType;
    LazyItemIndex<ParameterItem, idOf> mIndex;
    SubtreeIndexCache mSubtree;
    /// Whether some index lists the items: only then does a change make one out of date.
    std::atomic<bool> mIsIndexed{false};

    void changed() {
        if (mIsIndexed.load(std::memory_order_relaxed)) {
            SubtreeIndex::schemaChanged();
        }
    }
};

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
        loadAhead(mImpl->mItems, i, [](ParameterItem const& item) { return item.getImpl(); });
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
    mImpl->mNumberOfGroups += item->getItemType() == PARAMETER_GROUP;
    mImpl->changed();
}

ParameterItem* ParameterGroup::removeItem(char const* id) {
    KIVO_REQUIRE(id != 0);
    auto* item = mImpl->mIndex.first(mImpl->mItems, id);
    if (item) {
        mImpl->mIndex.removing(*item);
        mImpl->mItems.erase(std::ranges::find(mImpl->mItems, item));
        mImpl->mNumberOfGroups -= item->getItemType() == PARAMETER_GROUP;
        mImpl->changed();
    }
    return item;
}

ParameterItem* ParameterGroup::getItem(unsigned long index) const {
    KIVO_REQUIRE(index < getNumberOfItems());
    return mImpl->mItems[index];
}

ParameterItem* ParameterGroup::getItem(char const* id, bool recursive) const {
    KIVO_REQUIRE(id != 0);
    auto const direct = [&] { return mImpl->mIndex.first(mImpl->mItems, id); };
    if (!recursive) {
        return direct();
    }
    // A walk hands out const items; the group itself holds them as they were added.
    if (mImpl->mNumberOfGroups == 0) {
        return equalIgnoringCase(getId(), id) ? const_cast<ParameterGroup*>(this) : direct();
    }
    if (auto const subtree = SubtreeIndex::of(*this)) {
        return const_cast<ParameterItem*>(subtree->firstById(id));
    }
    ParameterItemFinder finder(id);
    accept(finder);
    return const_cast<ParameterItem*>(finder.getFound());
}

std::shared_ptr<SubtreeIndex const> SubtreeIndex::of(ParameterGroup const& group) {
    return group.mImpl->mSubtree.get(group);
}

void SubtreeIndex::markIndexed(ParameterGroup const& group) {
    group.mImpl->mIsIndexed.store(true, std::memory_order_relaxed);
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
