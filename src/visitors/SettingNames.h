#pragma once

#include <configuration/ParameterVisitor.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kivo::configuration {

class Parameter;
class ParameterGroup;
class ParameterItem;

/// At most this many faults of one run get a suggestion: a hostile file could have any number of faults.
inline constexpr std::size_t MAX_SUGGESTIONS = 100;

/// The name of a container as it stands in the full names of its settings: "retention", "mirror[2]".
/// @param occurrence counted from 1; only a container that repeats shows it
std::string composeSectionName(ParameterGroup const& container, unsigned long occurrence);

/// The same for a root, whose name does not show unless it repeats.
std::string composeRootName(ParameterGroup const& root, unsigned long occurrence);

/// What stands before the names of the settings of a section. @param prefix that of the section around it
std::string composePrefix(std::string const& prefix, std::string const& sectionName);

/// The full names of all settings and sections of a schema, to find what a user may have meant by a name that is not
/// known. Hidden settings are not suggested.
///
/// A section is named by what stands before the names of its settings: "mirror[2]." for an occurrence of a section
/// that repeats, nothing for the root. Names of other sections that repeat are made with the first occurrence.
class SettingNames final : private ParameterVisitor {
public:
    /// @param root the root group of a specification; must outlive this object
    explicit SettingNames(ParameterGroup const& root);

    /// The setting that was meant by an attribute, or a flag: one of the same section, if none elsewhere is closer.
    /// @param section the section in which the name stood
    /// @param prefix  what stands before the names of its settings
    /// @return the full name, or nothing
    std::string suggestSetting(ParameterGroup const& section, std::string const& prefix, std::string_view given) const;
    /// What was meant by an element: a section or a setting. One of the same section counts only if an element can give
    /// it.
    std::string suggestElement(ParameterGroup const& section, std::string const& prefix, std::string_view given) const;

private:
    struct Section {
        ParameterGroup const* group;
        std::string prefix;
    };
    /// A setting or a section, with the section that it stands in.
    struct Name {
        ParameterItem const* item;
        std::size_t section;
        bool isParameter;
    };

    bool visitGroupStart(ParameterGroup const& group) override;
    void visitGroupEnd(ParameterGroup const& group) override;
    bool visitParameter(Parameter const& parameter) override;

    template <class IsOffered>
    std::string suggest(ParameterGroup const& section, std::string const& prefix, std::string_view given,
                        IsOffered isOffered) const;

    std::vector<Section> mSections;
    std::vector<Name> mNames; // in the order of the walk
    std::vector<std::size_t> mOpenSections;
};

} // namespace kivo::configuration
