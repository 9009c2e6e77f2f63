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

/// So many questions are answered by walks before an index is made, which takes about as long as they do.
constexpr unsigned WALKED_QUESTIONS = 2;

/// What all indexes of the process may list together. Groups nested deeply would have their items listed once for each
/// group above them.
constexpr std::size_t NODE_LIMIT = 1'000'000;
std::atomic<std::size_t> nodesInUse{0};

std::string_view nameOf(ParameterItem const* item) { return item->getName(); }

} // namespace

/// Lists the items of a walk, each with its holder. Gives up on a schema that has no end or too many items.
class SubtreeIndex::Collector final : public ParameterVisitor {
public:
    explicit Collector(std::vector<Node>& nodes) : mNodes(nodes) {}

    bool visitGroupStart(ParameterGroup const& group) override {
        bool const isOpen =
            std::ranges::any_of(mOpenGroups, [&](Position position) { return mNodes[position].item == &group; });
        mIsComplete = mIsComplete && !isOpen && mNodes.size() < NODE_LIMIT;
        if (mIsComplete) {
            markIndexed(group);
            mOpenGroups.push_back(add(group));
        }
        return mIsComplete;
    }

    void visitGroupEnd(ParameterGroup const&) override { mOpenGroups.pop_back(); }

    bool visitParameter(Parameter const& parameter) override {
        add(parameter);
        return true;
    }

    bool isComplete() const { return mIsComplete; }

private:
    Position add(ParameterItem const& item) {
        auto const position = static_cast<Position>(mNodes.size());
        mNodes.push_back({&item, mOpenGroups.empty() ? position : mOpenGroups.back()});
        return position;
    }

    std::vector<Node>& mNodes;
    std::vector<Position> mOpenGroups;
    bool mIsComplete = true;
};

std::shared_ptr<SubtreeIndex const> SubtreeIndex::build(ParameterGroup const& group) {
    std::shared_ptr<SubtreeIndex> const index(new SubtreeIndex);
    if (!index->collect(group)) {
        return nullptr;
    }
    index->fill();
    return index;
}

/// @return whether an index is worth its memory
bool SubtreeIndex::collect(ParameterGroup const& group) {
    std::vector<Node> nodes;
    Collector collector(nodes);
    group.accept(collector);
    if (!collector.isComplete() || nodes.size() <= WALK_LIMIT) {
        return false;
    }
    if (nodesInUse.fetch_add(nodes.size(), std::memory_order_relaxed) + nodes.size() > NODE_LIMIT) {
        nodesInUse.fetch_sub(nodes.size(), std::memory_order_relaxed);
        return false;
    }
    mNodes = std::move(nodes);
    return true;
}

void SubtreeIndex::fill() {
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

SubtreeIndex::~SubtreeIndex() { nodesInUse.fetch_sub(mNodes.size(), std::memory_order_relaxed); }

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
    mVisibleByName.clear(); // of an attempt for which memory ran out
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
    auto const generation = schemaGeneration.load(std::memory_order_acquire);
    {
        std::scoped_lock const lock(mMutex);
        if (mGeneration != generation) {
            mIndex = nullptr;
            mQuestions = 0;
            mGeneration = generation;
        }
        // Asked for once: a group for which none was made then is walked until the schema changes.
        if (mIndex || mQuestions > WALKED_QUESTIONS || ++mQuestions <= WALKED_QUESTIONS) {
            return mIndex;
        }
    }
    auto index = SubtreeIndex::build(group);
    std::scoped_lock const lock(mMutex);
    if (mGeneration == generation) {
        mIndex = index;
    }
    return index;
}

} // namespace kivo::configuration
