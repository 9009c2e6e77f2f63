#pragma once

#include <configuration/Parameter.h>

#include "schema/NameComparison.h"
#include "schema/StoredOrigin.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kivo::configuration {

class ParameterGroup;
class Section;

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

/// An occurrence of a container in the tree that the sources give together. Constraints are no sections: what is given
/// for their settings stands in the container around them.
class Section {
public:
    /// Where a setting stands below a section: the containers that lead to it, none for the section's own settings.
    using Path = std::vector<ParameterGroup const*>;

    /// @param prefix what stands before the names of its settings
    Section(ParameterGroup const& group, std::string prefix);

    ParameterGroup const& getGroup() const { return *mGroup; }
    /// What stands before the names of its settings.
    std::string const& getPrefix() const { return mPrefix; }

    /// The section that a group of values inside this one stands for: a new occurrence of a container that repeats,
    /// else the only one.
    Section& enter(ParameterGroup const& container);
    /// The first occurrence of a container.
    Section& first(ParameterGroup const& container);
    /// The occurrences of a container that were given, in their order.
    std::vector<std::unique_ptr<Section>> const& occurrencesOf(ParameterGroup const& container) const;

    /// The positions of what was given for a setting of this section.
    std::vector<std::size_t> const& textsOf(char const* id) const;
    /// Adds one. @param id lives as long as the section
    void addText(char const* id, std::size_t position) { mTexts[id].push_back(position); }

private:
    Section& add(ParameterGroup const& container);

    ParameterGroup const* mGroup;
    std::string mPrefix;
    std::unordered_map<ParameterGroup const*, std::vector<std::unique_ptr<Section>>> mInside;
    std::map<std::string_view, std::vector<std::size_t>, CaseInsensitiveLess> mTexts;
};

/// Finds where the settings below a container stand, by one walk for each container that it is asked about.
class SectionPaths {
public:
    /// The containers from a section's own down to the first one that has a setting of an id; null when none has it.
    Section::Path const* find(ParameterGroup const& container, char const* id);

private:
    using Paths = std::map<std::string_view, Section::Path, CaseInsensitiveLess>;
    std::unordered_map<ParameterGroup const*, Paths> mPaths;
};

} // namespace kivo::configuration
