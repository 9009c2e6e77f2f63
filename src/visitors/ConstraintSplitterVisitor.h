#pragma once

#include <configuration/ParameterValueVisitor.h>

#include "visitors/SchemaIndex.h"

#include <optional>
#include <unordered_set>
#include <vector>

namespace kivo::configuration {

class Parameter;
class ParameterErrors;
class ParameterGroup;

/// Moves every bound value whose parameter lies under constraints of its container's schema group into value groups
/// bound to those constraints, which it adds at the end of the container. Values of one constraint gather in one group.
/// The value of a parameter in a container below stays where it is. Changes the tree; adds no message.
class ConstraintSplitterVisitor final : public ParameterValueVisitor {
public:
    explicit ConstraintSplitterVisitor(ParameterErrors& errors);

    bool visitGroupStart(ParameterValueGroup& group) override;
    void visitGroupEnd(ParameterValueGroup& group) override;
    bool visitParameterValue(ParameterValue& value) override;

private:
    std::vector<ParameterGroup const*> constraintsAbove(Parameter const& parameter, ParameterGroup const& schemaGroup);

    [[maybe_unused]] ParameterErrors& mErrors;
    /// For each open group the values whose copies were moved. They stay in the list until the group ends, since taking
    /// them out one by one would be quadratic in their number, and the walk still visits them.
    std::vector<std::unordered_set<ParameterValueItem const*>> mMoved;
    std::optional<SchemaIndex> mSchemaIndex; // of the schema group of the outermost bound value group
};

} // namespace kivo::configuration
