#include "kernel/kvProcessInit.h"

#include "schema/SubtreeIndex.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterVisitor.h>

#include <algorithm>
#include <atomic>

namespace kivo::configuration {

namespace {

/// Counts the changes of all groups' lists. One count for all: a group does not know the groups that it stands in.
std::atomic<std::uint64_t> schemaGeneration{0};

/// Up to this number of items a walk is as quick as asking an index.
constexpr std::size_t WALK_LIMIT = 16;

std::string_view nameOf(ParameterItem const* item) { return item->getName(); }

} // namespace

/// Lists the items of a walk, each with its holder.
class SubtreeIndex::Collector final : public ParameterVisitor {
public:
    explicit Collector(std::vector<Node>& nodes) : mNodes(nodes) {}

    bool visitGroupStart(ParameterGroup const& group) override {
        auto const position = add(group);
        mOpenGroups.push_back(position);
        return true;
    }

    void visitGroupEnd(ParameterGroup const&) override { mOpenGroups.pop_back(); }

    bool visitParameter(Parameter const& parameter) override {
        add(parameter);
        return true;
    }

private:
    Position add(ParameterItem const& item) {
        auto const position = static_cast<Position>(mNodes.size());
        mNodes.push_back({&item, mOpenGroups.empty() ? position : mOpenGroups.back()});
        return position;
    }

    std::vector<Node>& mNodes;
    std::vector<Position> mOpenGroups;
};

SubtreeIndex::SubtreeIndex(ParameterGroup const& group)
    : mGeneration(schemaGeneration.load(std::memory_order_acquire)) {
    Collector collector(mNodes);
    group.accept(collector);
    if (mNodes.size() <= WALK_LIMIT) {
        return;
    }
    mById.reserve(mNodes.size());
    mParameterByName.reserve(mNodes.size());
    for (Position position = 0; position < mNodes.size(); ++position) {
        auto const& node = mNodes[position];
        mById.add(node.item->getId(), &node);
        if (node.item->getItemType() == ParameterItem::PARAMETER) {
            mParameterByName.emplace(nameOf(node.item), position);
        }
    }
}

ParameterItem const* SubtreeIndex::firstById(std::string_view id) const {
    auto const* node = mById.first(id);
    return node ? node->item : nullptr;
}

std::vector<ParameterGroup const*> SubtreeIndex::pathToParameter(std::string_view name) const {
    std::vector<ParameterGroup const*> path;
    if (auto const found = mParameterByName.find(name); found != mParameterByName.end()) {
        auto position = mNodes[found->second].holder;
        path.push_back(static_cast<ParameterGroup const*>(mNodes[position].item));
        while (mNodes[position].holder != position) {
            position = mNodes[position].holder;
            path.push_back(static_cast<ParameterGroup const*>(mNodes[position].item));
        }
        std::ranges::reverse(path);
    }
    return path;
}

void SubtreeIndex::sortNames() const {
    for (Position position = 0; position < mNodes.size(); ++position) {
        auto const* item = mNodes[position].item;
        if (item->getItemType() == ParameterItem::PARAMETER && !static_cast<Parameter const*>(item)->isHidden()) {
            mVisibleByName.push_back(position);
        }
    }
    std::ranges::sort(mVisibleByName, [this](Position a, Position b) {
        return compareIgnoringCase(nameOf(mNodes[a].item), nameOf(mNodes[b].item)) < 0;
    });
}

std::vector<Parameter const*> SubtreeIndex::visibleParametersBeginning(std::string_view text) const {
    std::call_once(mNamesSorted, [this] { sortNames(); });
    auto const beginning = [&](Position position) { return nameOf(mNodes[position].item).substr(0, text.size()); };
    auto const first = std::ranges::lower_bound(mVisibleByName, text, CaseInsensitiveLess{}, beginning);
    auto const last = std::ranges::upper_bound(mVisibleByName, text, CaseInsensitiveLess{}, beginning);
    std::vector<Position> positions(first, last);
    std::ranges::sort(positions);
    std::vector<Parameter const*> parameters;
    parameters.reserve(positions.size());
    for (auto const position : positions) {
        parameters.push_back(static_cast<Parameter const*>(mNodes[position].item));
    }
    return parameters;
}

void SubtreeIndex::schemaChanged() noexcept { schemaGeneration.fetch_add(1, std::memory_order_acq_rel); }

std::shared_ptr<SubtreeIndex const> SubtreeIndexCache::get(ParameterGroup const& group) {
    std::scoped_lock const lock(mMutex);
    if (!mIndex || mIndex->mGeneration != schemaGeneration.load(std::memory_order_acquire)) {
        mIndex = std::make_shared<SubtreeIndex const>(group);
    }
    return mIndex->mNodes.size() > WALK_LIMIT ? mIndex : nullptr;
}

} // namespace kivo::configuration
