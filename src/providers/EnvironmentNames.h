#pragma once

#include <configuration/ParameterVisitor.h>

#include "schema/NameComparison.h"

#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kivo::configuration {

class ParameterErrors;
class ParameterGroup;
class ParameterValueGroup;
struct EnvironmentVariable;

/// The environment variables of a specification's settings. A name is made of the prefix, the sections and the id, in
/// upper case, every character but letters and digits as an underscore, with an underscore after the prefix and two
/// after each section. A setting that was renamed has a variable for its former name, too.
class EnvironmentNames final : private ParameterVisitor {
public:
    /// @param root group of the specification; outlives this object
    /// @throws ConfigurationException "Settings \"<name>\" and \"<name>\" have the same environment variable
    ///         \"<variable>\""
    EnvironmentNames(ParameterGroup const& root, std::string_view prefix);
    EnvironmentNames(EnvironmentNames const&) = delete;
    EnvironmentNames& operator=(EnvironmentNames const&) = delete;

    /// The values that variables give, as those of the specification's group; its group is there even when they give
    /// none. Variables of no setting are passed over.
    /// @param faults gets those that cannot be given
    std::unique_ptr<ParameterValueGroup> assign(std::vector<EnvironmentVariable> const& variables,
                                                ParameterErrors& faults) const;

    /// Whether a setting has this variable.
    bool isKnown(std::string_view variable) const { return mPositions.contains(variable); }
    /// The variable that was probably meant by one of no setting; null when none is close. Those of hidden settings
    /// are not offered.
    char const* suggest(std::string_view variable) const;
    /// The variable of the setting that ids lead to: those of the sections below the specification's group, then its
    /// own; empty when it cannot be given.
    std::string find(std::vector<char const*> const& ids) const;

private:
    struct Section {
        ParameterGroup const* group;
        std::size_t around;       ///< the root is around itself
        std::string beginning;    ///< of the variables of its settings
        std::size_t repeated = 0; ///< the outermost one around its settings that repeats
        std::set<std::string_view, CaseInsensitiveLess> ids = {}; ///< of its settings and sections so far
    };
    struct Name {
        Parameter const* parameter;
        std::size_t section;
        bool isFormer; ///< what the setting was called before
        std::string variable;
    };

    bool visitGroupStart(ParameterGroup const& group) override;
    void visitGroupEnd(ParameterGroup const& group) override;
    bool visitParameter(Parameter const& parameter) override;
    void addName(Parameter const& parameter, bool isFormer);
    void addPositions();
    static char const* idOf(Name const& name);
    std::string fullNameOf(Name const& name) const;
    std::string pathOf(std::size_t section) const;

    std::vector<Section> mSections;
    std::vector<Name> mNames; // in the order of the walk
    std::unordered_map<std::string_view, std::size_t> mPositions;
    std::vector<std::size_t> mOpenSections;
    std::size_t mOpenConstraints = 0; // in the innermost open section
};

} // namespace kivo::configuration
