#pragma once

#include <configuration/ParameterVisitor.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace kivo::configuration {

class ParameterItem;

/// Remembers what one walk over a schema showed, so that further questions need no walk. Each answer is that of the
/// walk which it stands for. Made for one phase of a request, in which nobody changes the schema; the first question
/// that needs it starts the walk.
class SchemaIndex final : private ParameterVisitor {
public:
    /// @param root the group to walk over; questions are about it and the groups below it
    explicit SchemaIndex(ParameterGroup const& root) : mRoot(root) {}

    /// Whether a group holds parameters only, all of the library's own classes: a walk shows just these.
    static bool isFlat(ParameterGroup const& group);

    /// What `group.getItem(id, true)` finds.
    ParameterItem const* findById(ParameterGroup const& group, char const* id);

    /// What a ConstraintFinderVisitor finds: the groups from this one down to the one that holds the first parameter of
    /// a name, compared exactly; empty when there is none.
    std::vector<ParameterGroup const*> findPathTo(ParameterGroup const& group, char const* parameterName);

private:
    using Position = std::uint32_t;

    /// An item that the walk showed, with the group that it stands in.
    struct Node {
        ParameterItem const* item;
        Position holder; ///< NONE for the root
        bool isParameter;
    };
    static constexpr Position NONE = ~Position{0};

    /// The part of the walk that shows a group and all below it.
    struct Range {
        Position begin;
        Position end;
    };

    /// The nodes by the hash of a key: a bucket lists its nodes in the order of the walk.
    struct Buckets {
        std::vector<Position> positions; ///< bucket after bucket
        std::vector<Position> begins;    ///< of each bucket, and the end of the last one
    };

    bool visitGroupStart(ParameterGroup const& group) override;
    void visitGroupEnd(ParameterGroup const& group) override;
    bool visitParameter(Parameter const& parameter) override;

    bool isLeading(ParameterGroup const& group, ParameterItem const& item);
    void walk(ParameterGroup const& group);
    Position add(ParameterItem const& item, bool isParameter);
    Range const* findRange(ParameterGroup const& group);
    template <class KeyOf>
    void fill(Buckets& buckets, KeyOf keyOf) const;
    template <class IsSought>
    Node const* findFirst(Buckets const& buckets, Range const& range, std::string_view key, IsSought isSought) const;

    ParameterGroup const& mRoot;
    /// The parameters at the front of groups. Most questions are about these and need no walk. With walks instead,
    /// requests of 100 and of 1,000 parameters, nine tenths of them in containers, take 4 % more instructions (469
    /// and 451 thousand at 100; callgrind, Release, the benchmark "request" once more in one process).
    std::unordered_map<ParameterGroup const*, std::unordered_set<ParameterItem const*>> mLeading;
    std::vector<Node> mNodes; // in the order of the walk
    std::vector<Position> mOpenGroups;
    std::unordered_map<ParameterGroup const*, Range> mRanges;
    Buckets mById;
    Buckets mByName;
};

} // namespace kivo::configuration
