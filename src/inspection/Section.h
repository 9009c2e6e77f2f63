#pragma once

#include "schema/NameComparison.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kivo::configuration {

class ParameterGroup;
class Section;

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
