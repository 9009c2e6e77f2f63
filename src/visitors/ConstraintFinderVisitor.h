#pragma once

#include <configuration/ParameterVisitor.h>

#include <string>
#include <vector>

namespace kivo::configuration {

/// Finds the first parameter of a name, compared exactly, in a group and all below it, with the groups that lead to it.
/// Reads only.
class ConstraintFinderVisitor final : public ParameterVisitor {
public:
    explicit ConstraintFinderVisitor(std::string const& parameterName);

    bool visitGroupStart(ParameterGroup const& group) override;
    void visitGroupEnd(ParameterGroup const& group) override;
    bool visitParameter(Parameter const& parameter) override;

    /// The groups from the searched one down to the one that holds the parameter; empty when there is none.
    std::vector<ParameterGroup const*> const& getGroupPath() const;

private:
    std::string mParameterName;
    bool mFound = false;
    std::vector<ParameterGroup const*> mGroupPath;
};

} // namespace kivo::configuration
