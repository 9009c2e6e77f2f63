#pragma once

#include <configuration/ParameterVisitor.h>

#include <vector>

namespace kivo::configuration {

class ParameterErrors;
class ParameterValueGroup;

/// Walks a specification's schema beside the values, gives every schema group a value group, and adds a copy of its
/// default to every parameter that has no value, but where a mutually exclusive constraint is decided or optional.
/// Changes the tree; adds no message.
class DefaultValueProviderVisitor final : public ParameterVisitor {
public:
    /// @param valueGroup the value group bound to the specification's root group
    DefaultValueProviderVisitor(ParameterValueGroup& valueGroup, ParameterErrors& errors);

    bool visitGroupStart(ParameterGroup const& schemaGroup) override;
    void visitGroupEnd(ParameterGroup const& schemaGroup) override;
    bool visitParameter(Parameter const& parameter) override;

    /// Whether one of the open value groups belongs to a mutually exclusive constraint that takes no default any more.
    bool isConstraintFullfilledInCurrentNesting() const;

private:
    ParameterValueGroup& mValueGroup;
    [[maybe_unused]] ParameterErrors& mErrors;
    /// The value group of each open schema group.
    std::vector<ParameterValueGroup*> mValueStack;
};

} // namespace kivo::configuration
