#pragma once

#include "schema/ItemIndex.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kivo::configuration {

class Parameter;
class ParameterGroup;
class ParameterItem;

/// Answers, without a walk, what walks over a large group and all below it would find. Each answer is the same as that
/// of the visitor that walks for it (ParameterItemFinder, ConstraintFinderVisitor, ParameterSearchVisitor), which
/// serves small groups. Immutable: read by any number of threads.
class SubtreeIndex {
public:
    /// The index of a group, made anew when any group's list of items was changed since it was made. Null for a group
    /// that is quicker to walk: a small one, one that was not asked about often enough, and one for which the indexes
    /// of all groups together would take too much memory.
    static std::shared_ptr<SubtreeIndex const> of(ParameterGroup const& group);

    /// To be called when the list of a group changes that was marked: all indexes made before are out of date.
    static void schemaChanged() noexcept;

    ~SubtreeIndex();
    SubtreeIndex(SubtreeIndex const&) = delete;
    SubtreeIndex& operator=(SubtreeIndex const&) = delete;

    /// The first item of an id in the order of a walk, the group itself included; letter case is ignored. Null: none.
    ParameterItem const* firstById(std::string_view id) const;

    /// The groups from this one down to the one that holds the first parameter of a name, compared exactly; empty:
    /// none.
    std::vector<ParameterGroup const*> pathToParameter(std::string_view name) const;

    /// The parameters that are not hidden and whose name begins with a text, letter case ignored, in the order of a
    /// walk. A parameter that stands in several places is there several times.
    std::vector<Parameter const*> visibleParametersBeginning(std::string_view text) const;

private:
    friend class SubtreeIndexCache;
    class Collector;

    SubtreeIndex() = default;
    static std::shared_ptr<SubtreeIndex const> build(ParameterGroup const& group);
    static void markIndexed(ParameterGroup const& group);
    bool collect(ParameterGroup const& group);
    void fill();

    using Position = std::uint32_t;

    /// An item with the group that holds it. Of the group itself, the holder is itself.
    struct Node {
        ParameterItem const* item;
        Position holder;
    };

    void sortNames() const;

    std::vector<Node> mNodes; // in the order of a walk
    ItemIndex<Node const> mById;
    std::unordered_map<std::string_view, Position> mParameterByName;

    // Only abbreviated flags need the sorted names: made by the first question for one.
    mutable std::once_flag mNamesSorted;
    mutable std::vector<Position> mVisibleByName;
};

/// Keeps the index of one group. Its lock is held for a moment only, never while the schema is walked.
class SubtreeIndexCache {
public:
    std::shared_ptr<SubtreeIndex const> get(ParameterGroup const& group);

private:
    std::mutex mMutex;
    std::uint64_t mGeneration = 0; // of the schema, to which the rest belongs
    unsigned mQuestions = 0;
    std::shared_ptr<SubtreeIndex const> mIndex;
};

} // namespace kivo::configuration
