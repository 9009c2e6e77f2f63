#include "kernel/kvProcessInit.h"

#include "visitors/SchemaIndex.h"

#include "schema/NameComparison.h"
#include "schema/ParameterGroupImpl.h"
#include "visitors/ConstraintFinderVisitor.h"

#include <algorithm>
#include <bit>
#include <numeric>

namespace kivo::configuration {

bool SchemaIndex::isFlat(ParameterGroup const& group) { return ParameterGroup::Impl::isFlat(group); }

/// Walks over a plain group as its accept() does. Of the groups below it, those that a caller's own item shows are not
/// noted in mRanges, since the item need not show all of them.
void SchemaIndex::walk(ParameterGroup const& group) {
    auto const begin = add(group, false);
    mOpenGroups.push_back(begin);
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        auto const& item = *group.getItem(i);
        if (isPlainGroup(item)) {
            walk(static_cast<ParameterGroup const&>(item));
        } else {
            item.accept(*this);
        }
    }
    mOpenGroups.pop_back();
    mRanges.try_emplace(&group, Range{begin, static_cast<Position>(mNodes.size())});
}

SchemaIndex::Position SchemaIndex::add(ParameterItem const& item, bool isParameter) {
    mNodes.push_back({&item, mOpenGroups.empty() ? NONE : mOpenGroups.back(), isParameter});
    return static_cast<Position>(mNodes.size() - 1);
}

bool SchemaIndex::visitGroupStart(ParameterGroup const& group) {
    mOpenGroups.push_back(add(group, false));
    return true;
}

void SchemaIndex::visitGroupEnd(ParameterGroup const&) { mOpenGroups.pop_back(); }

bool SchemaIndex::visitParameter(Parameter const& parameter) {
    add(parameter, true);
    return true;
}

/// Null for a group that was not walked over, or not by the library's own rules.
SchemaIndex::Range const* SchemaIndex::findRange(ParameterGroup const& group) {
    if (mNodes.empty() && isPlainGroup(mRoot)) {
        walk(mRoot);
    }
    auto const found = mRanges.find(&group);
    return found == mRanges.end() ? nullptr : &found->second;
}

template <class KeyOf>
void SchemaIndex::fill(Buckets& buckets, KeyOf keyOf) const {
    auto const count = std::bit_ceil(mNodes.size());
    std::vector<std::size_t> bucketOf;
    bucketOf.reserve(mNodes.size());
    buckets.begins.assign(count + 1, 0);
    for (auto const& node : mNodes) {
        auto const bucket = bucketOf.emplace_back(hashIgnoringCase(keyOf(*node.item)) & (count - 1));
        ++buckets.begins[bucket + 1];
    }
    std::partial_sum(buckets.begins.begin(), buckets.begins.end(), buckets.begins.begin());
    buckets.positions.resize(mNodes.size());
    auto next = buckets.begins;
    for (Position position = 0; position < mNodes.size(); ++position) {
        buckets.positions[next[bucketOf[position]]++] = position;
    }
}

template <class IsSought>
SchemaIndex::Node const* SchemaIndex::findFirst(Buckets const& buckets, Range const& range, std::string_view key,
                                                IsSought isSought) const {
    auto const bucket = hashIgnoringCase(key) & (buckets.begins.size() - 2);
    auto const* const end = &buckets.positions[0] + buckets.begins[bucket + 1];
    auto const* position = std::lower_bound(&buckets.positions[0] + buckets.begins[bucket], end, range.begin);
    for (; position != end && *position < range.end; ++position) {
        if (auto const& node = mNodes[*position]; isSought(node)) {
            return &node;
        }
    }
    return nullptr;
}

/// Whether an item stands before all of a group's items that a walk goes into.
bool SchemaIndex::isLeading(ParameterGroup const& group, ParameterItem const& item) {
    auto const [entry, isNew] = mLeading.try_emplace(&group);
    for (unsigned long i = 0; isNew && i < group.getNumberOfItems() && isPlainParameter(*group.getItem(i)); ++i) {
        entry->second.insert(group.getItem(i));
    }
    return entry->second.contains(&item);
}

ParameterItem const* SchemaIndex::findById(ParameterGroup const& group, char const* id) {
    if (isFlat(group) || !isPlainGroup(group)) {
        return group.getItem(id, true);
    }
    auto const* direct = group.getItem(id, false);
    if (direct && isLeading(group, *direct) && !equalIgnoringCase(group.getId(), id)) {
        return direct;
    }
    auto const* range = findRange(group);
    if (!range) {
        return group.getItem(id, true);
    }
    if (mById.begins.empty()) {
        fill(mById, [](ParameterItem const& item) { return item.getId(); });
    }
    std::string_view const key(id);
    auto const* node =
        findFirst(mById, *range, key, [key](Node const& each) { return equalIgnoringCase(each.item->getId(), key); });
    return node ? node->item : nullptr;
}

std::vector<ParameterGroup const*> SchemaIndex::findPathTo(ParameterGroup const& group, char const* parameterName) {
    auto const* range = findRange(group);
    if (!range) {
        ConstraintFinderVisitor finder(parameterName);
        group.accept(finder);
        return finder.getGroupPath();
    }
    if (mByName.begins.empty()) {
        fill(mByName, [](ParameterItem const& item) { return item.getName(); });
    }
    std::string_view const name(parameterName);
    auto const* node = findFirst(mByName, *range, name,
                                 [name](Node const& each) { return each.isParameter && each.item->getName() == name; });
    std::vector<ParameterGroup const*> path;
    while (node && node != &mNodes[range->begin]) {
        node = &mNodes[node->holder];
        path.push_back(static_cast<ParameterGroup const*>(node->item));
    }
    std::ranges::reverse(path);
    return path;
}

} // namespace kivo::configuration
