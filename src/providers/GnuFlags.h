#pragma once

#include <configuration/ParameterVisitor.h>

#include "schema/NameComparison.h"

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kivo::configuration {

class Parameter;
class ParameterGroup;

/// The names by which flags in GNU style mean the settings of a specification. One walk over the schema serves all
/// flags. Of items with one id in a section, the first counts, as everywhere. Reads only.
class GnuFlags final : private ParameterVisitor {
public:
    /// A container, or the root, which is the first one.
    struct Section {
        ParameterGroup const* group;
        std::size_t around;        ///< the section that it stands in; the root's own
        std::size_t depth;         ///< the number of sections around it, the root not counted
        std::string prefix;        ///< before the names of its settings
        std::string prefixByNames; ///< the same with the names of sections instead of their ids
        std::string obstacle;      ///< why flags cannot give anything in it; empty when they can
    };
    struct Setting {
        Parameter const* parameter;
        std::size_t section;
    };
    /// A text that names a setting.
    struct Name {
        std::string text;
        std::size_t rank;    ///< of two settings with one text, the one of the lower rank is meant
        std::size_t setting; ///< its position in the specification
        std::size_t prefix;  ///< the length of the sections at the beginning; 0 when it is without
        bool isFormer;       ///< what the setting was called before
        bool canBeShortened;
    };
    using Names = std::vector<Name const*>;

    /// @param root          of the specification; must outlive this object
    /// @param resolvesNames whether names win over ids; otherwise ids win over names
    GnuFlags(ParameterGroup const& root, bool resolvesNames);

    /// What a full name means: several settings when it does not tell them apart. A setting outside all sections comes
    /// first, then one that is named with its sections, then one in a section.
    Names findFull(std::string_view name) const;
    /// The settings that are not hidden and whose names begin with a text, in the order of the specification. A text
    /// may name the sections, too; these in full.
    Names findShortened(std::string_view text) const;
    /// Whether a text names a section or a constraint.
    bool isGroup(std::string_view text) const { return mGroups.contains(text); }

    Section const& sectionOf(Name const& name) const { return mSections[mSettings[name.setting].section]; }
    Section const& around(Section const& section) const { return mSections[section.around]; }
    Parameter const& parameterOf(Name const& name) const { return *mSettings[name.setting].parameter; }
    /// The flag of a setting, as messages show it.
    std::string flagOf(Name const& name) const;

private:
    /// A group that the walk is in.
    struct OpenGroup {
        std::size_t section;
        ParameterGroup const* constraint; ///< the innermost one in the section, or null
    };

    bool visitGroupStart(ParameterGroup const& group) override;
    void visitGroupEnd(ParameterGroup const& group) override;
    bool visitParameter(Parameter const& parameter) override;

    std::string obstacleTo(ParameterGroup const& container) const;
    void addNames(Setting const& setting);
    std::vector<Name>::const_iterator firstFrom(std::string_view text) const;
    void addName(std::string const& prefix, std::string const& name, std::size_t rank, bool canBeShortened);

    bool mResolvesNames;
    std::vector<Section> mSections;
    std::vector<std::set<std::string_view, CaseInsensitiveLess>> mIds; ///< of the items of each section
    std::vector<OpenGroup> mOpenGroups;
    std::vector<Setting> mSettings; ///< in the order of the walk
    std::vector<Name> mNames;       ///< by text, then rank, then setting
    std::set<std::string, CaseInsensitiveLess> mGroups;
};

} // namespace kivo::configuration
