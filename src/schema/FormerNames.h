#pragma once

#include <configuration/ParameterVisitor.h>

#include "schema/NameComparison.h"

#include <map>
#include <string_view>
#include <unordered_set>

namespace kivo::configuration {

class ParameterErrors;

/// Remembers that some parameter of the process has a former name. Tools without any are spared the walk of
/// checkFormerNames(), which takes about as long as registering the items.
void noteFormerName() noexcept;
bool areThereFormerNames() noexcept;

/// Checks that the former names of the parameters below a group name nothing else there: no id or name of an item, and
/// no other parameter's former name. A parameter may stand in several places. Letter case is ignored.
/// @param collected takes what would be thrown, for all parameters; null: the first fault is thrown
/// @throws ConfigurationException "Former name \"<former>\" of parameter \"<name>\" is taken by \"<name of the
/// other>\""
void checkFormerNames(ParameterGroup const& root, ParameterErrors* collected = nullptr);

/// Finds parameters by their former names. Made for one phase of a request, in which nobody changes the schema; the
/// first question walks over it, unless no parameter of the process has had a former name.
class FormerNames final : private ParameterVisitor {
public:
    /// @param root the group to look in, with all below it; must outlive this object
    explicit FormerNames(ParameterGroup const& root) : mRoot(root) {}

    /// The parameter that had a name, letter case ignored; null when there is none. It may stand in several places.
    Parameter const* find(std::string_view name);

private:
    bool visitGroupStart(ParameterGroup const& group) override;
    bool visitParameter(Parameter const& parameter) override;

    ParameterGroup const& mRoot;
    bool mIsWalked = false;
    std::unordered_set<ParameterGroup const*> mGroups; // each is entered once, however many refer to it
    std::map<std::string_view, Parameter const*, CaseInsensitiveLess> mParameters;
};

} // namespace kivo::configuration
