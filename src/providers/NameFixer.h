#pragma once

#include <configuration/ParameterValueVisitor.h>

#include "providers/FlagMatches.h"

#include <vector>

namespace kivo::configuration {

class ParameterErrors;
class ParameterGroup;

/// Gives every value whose id is the beginning of exactly one parameter's name that parameter's id. A value that names
/// no parameter, or that is the former name of one, keeps its id. Changes ids, never the structure.
class NameFixer final : public ParameterValueVisitor {
public:
    /// @param rootGroup the schema group of the group that the walk begins at
    /// @param collected takes what an ambiguous flag throws, and the flag stays as it is; null: it throws
    explicit NameFixer(ParameterGroup const* rootGroup, ParameterErrors* collected = nullptr);

    /// @throws ConfigurationException "\"%s\" is not a valid group id"
    bool visitGroupStart(ParameterValueGroup& group) override;
    void visitGroupEnd(ParameterValueGroup& group) override;
    /// @throws ConfigurationException "The flag \"%s\" is ambiguous, matching the following allowed flags: %s.
    ///         Please be more specific."
    bool visitParameterValue(ParameterValue& value) override;

private:
    ParameterGroup const* mRootGroup;
    ParameterErrors* mCollected;
    /// Notes the schema group of a value group that begins, and what its flags can mean.
    void open(ParameterValueGroup const& group, ParameterGroup const& schemaGroup);

    /// The schema group of each open value group.
    std::vector<ParameterGroup const*> mGroupStack;
    std::vector<FlagMatches> mMatchesStack;
};

} // namespace kivo::configuration
