#pragma once

#include <configuration/ParameterValueVisitor.h>

namespace kivo::configuration {

class ParameterErrors;
class ParameterGroup;
class Specification;

/// Fills the defaults into the value group that is bound to a specification's root group. When nobody gave anything, an
/// optional root group gets a value group first; otherwise nothing is added. Changes the tree; adds no message.
class ParameterValueGroupDefaultProviderVisitor final : public ParameterValueVisitor {
public:
    /// @throws kivo::ContractViolationException "specification != 0"
    ParameterValueGroupDefaultProviderVisitor(Specification const* specification, ParameterErrors& errors);

    bool visitGroupStart(ParameterValueGroup& group) override;

private:
    ParameterGroup const* mRootGroup;
    ParameterErrors& mErrors;
};

} // namespace kivo::configuration
