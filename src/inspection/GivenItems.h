#pragma once

#include "inspection/Section.h"
#include "schema/StoredOrigin.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace kivo::configuration {

class Parameter;
class ParameterGroup;
class ParameterValueGroup;

/// A text or an element as a source gave it, and what became of it.
struct GivenItem {
    static constexpr std::size_t NONE = ~std::size_t{0};

    std::string id;                       ///< as it was given
    std::size_t holder = NONE;            ///< the position of the group around it
    StoredOrigin origin;                  ///< of its own
    Section* section = nullptr;           ///< of a text: where it was given; of a group: what it is; null: nowhere
    Parameter const* parameter = nullptr; ///< what a text is bound to
    std::optional<std::string> text;      ///< as it reads
    std::size_t source = 0;               ///< counted in the order in which they are asked
    bool isPresent = false;               ///< whether a text was given, and is not only read
    bool survivesMerge = false;           ///< no earlier occurrence in the same source has the text's place
    bool wins = false;                    ///< it is what the tool reads
    std::string meant;                    ///< of a misplaced text: the full name of the setting
    bool isExplained = false;             ///< of an unknown element: something was suggested for it
};

/// All that the sources give, and the sections that it stands in.
class GivenItems {
public:
    /// @param root of the specification; must outlive this object
    explicit GivenItems(ParameterGroup const& root);

    /// Notes what a source gives, once its values are bound. Each text and each group has an origin of its own.
    /// @return the positions of groups that belong to nothing and hold nothing
    std::vector<std::size_t> note(ParameterValueGroup& values);
    /// Notes which texts of a source are still there when its values were merged among themselves.
    void noteSurvivors(ParameterValueGroup& values);
    /// What is noted from now on comes from the next source.
    void endSource() { ++mSource; }
    /// Forgets the occurrence of a repeating root that was noted last, because it gave nothing.
    void dropEmptyRoot();

    /// In the order in which they were given.
    std::vector<GivenItem>& get() { return mItems; }
    /// The item that has an origin of its own, or null.
    GivenItem* find(StoredOrigin const& origin);
    /// The group that an item stands in, or null.
    GivenItem* holderOf(GivenItem const& item) {
        return item.holder == GivenItem::NONE ? nullptr : &mItems[item.holder];
    }
    /// The occurrences of the root that were given.
    std::vector<std::unique_ptr<Section>> const& getRootSections() const { return mRootSections; }

private:
    class Noter;
    class SurvivorNoter;

    Section& enterRoot();

    ParameterGroup const& mRoot;
    std::vector<GivenItem> mItems;
    std::unordered_map<void const*, std::size_t> mPositions; // by the identity of the item's origin
    std::vector<std::unique_ptr<Section>> mRootSections;
    std::vector<std::unique_ptr<Section>> mEmptyRoots; // items still refer to them
    std::size_t mSource = 0;
};

} // namespace kivo::configuration
