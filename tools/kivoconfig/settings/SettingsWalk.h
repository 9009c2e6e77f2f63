#pragma once

#include <configuration/ParameterVisitor.h>

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kivo::configuration {
class Specification;
} // namespace kivo::configuration

namespace kivoconfig {

/// An item of an exclusive choice: of those of one choice, at most one may be given.
struct Alternative {
    kivo::configuration::ParameterGroup const* choice;
    unsigned long position; ///< of the item in the choice
};

/// A setting where a specification has it.
struct Setting {
    kivo::configuration::Parameter const& parameter;
    bool isDirect;                          ///< stands in its section itself, not in a constraint
    std::vector<Alternative> alternatives;  ///< what it is part of within its section, outermost first
    std::optional<std::string> defaultText; ///< what it is when it is not given, in UTF-8
};

/// Walks over a specification and shows what can be given for it, in order.
///
/// Constraints are no levels: their settings are shown as part of the section around them. Left out is what no source
/// can give: a section inside a constraint, and of items with one id in a section all but the first.
class SettingsWalk : private kivo::configuration::ParameterVisitor {
public:
    /// @throws kivo::configuration::ConfigurationException the specification has no group
    void walk(kivo::configuration::Specification const& specification);

protected:
    /// Walks over a section, or a specification's group, as if it was a specification.
    void walkSection(kivo::configuration::ParameterGroup const& section);

    virtual void onSetting(Setting const& setting) = 0;
    /// A section begins, or the specification itself. @return whether to show what is in it, and its end
    virtual bool onSectionStart(kivo::configuration::ParameterGroup const& section);
    virtual void onSectionEnd(kivo::configuration::ParameterGroup const& section);

    /// The number of sections around what is shown; 0 in the specification itself.
    std::size_t getDepth() const { return mSections.size() - 1; }

private:
    /// A constraint that was entered.
    struct Constraint {
        kivo::configuration::ParameterGroup const* group;
        unsigned long position = 0;                        ///< of the item that is visited
        std::optional<unsigned long> defaultPosition = {}; ///< of the first item that has a default
    };
    /// A section that was entered.
    struct Section {
        std::set<std::string> ids;           ///< of the items so far, letter case folded
        std::vector<Constraint> constraints; ///< that are open
    };

    bool visitGroupStart(kivo::configuration::ParameterGroup const& group) override;
    void visitGroupMiddle(kivo::configuration::ParameterGroup const& group) override;
    void visitGroupEnd(kivo::configuration::ParameterGroup const& group) override;
    bool visitParameter(kivo::configuration::Parameter const& parameter) override;
    bool isFirstOfItsId(kivo::configuration::ParameterItem const& item);
    std::optional<std::string> findDefault(kivo::configuration::Parameter const& parameter);

    std::vector<Section> mSections;
};

} // namespace kivoconfig
