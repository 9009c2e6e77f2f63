#pragma once

#include <configuration/ParameterValueVisitor.h>

#include "values/ItemTaker.h"

#include <memory>
#include <vector>

namespace kivo::configuration {

class ParameterErrors;
class ParameterGroup;
class Specification;

/// Moves the bound values of a tree into a target group and merges them with what is there: a bounded parameter or
/// group that is there already wins, an unbounded parameter collects the texts of all, an unbounded group stays a group
/// for each occurrence. What is unbound or not under the specification's root is left where it is. Adds no message.
class ParameterValueAggregationVisitor final : public ParameterValueVisitor {
public:
    /// @param target             receives the values; it may hold those of earlier trees
    /// @param flattenConstraints whether the values of constraint groups go directly into their container
    /// @throws kivo::ContractViolationException "specification != 0"
    ParameterValueAggregationVisitor(Specification const* specification, ParameterValueGroup& target,
                                     ParameterErrors& errors, bool flattenConstraints);

    bool visitGroupStart(ParameterValueGroup& group) override;
    void visitGroupEnd(ParameterValueGroup& group) override;
    bool visitParameterValue(ParameterValue& value) override;

    /// Whether a group and all above it, up to one bound to the root group, are bound.
    bool isGroupInSpecification(ParameterValueGroup const* group) const;

private:
    bool isInSpecification(ParameterValueGroup const& group) const;
    ParameterValueGroup& findTarget(ParameterValueGroup& group);
    std::unique_ptr<ParameterValueItem> takeOrCopy(ParameterValue& value);

    ParameterGroup const* mRootGroup;
    [[maybe_unused]] ParameterErrors* mErrors;
    /// The group into which the items of each open group go; at the bottom the target.
    std::vector<ParameterValueGroup*> mTargetStack;
    std::vector<bool> mInSpecificationStack;
    std::vector<ItemTaker> mTakerStack; // of the open groups
    bool mFlattenConstraints;
};

} // namespace kivo::configuration
