#pragma once

#include <configuration/ParameterValueVisitor.h>

namespace kivo::configuration {

class ParameterErrors;
class ParameterGroup;
class Specification;

/// Runs the second phase of validation for every value group that is bound to a specification's root group. Reads only.
class ParameterValueGroupValidationVisitor final : public ParameterValueVisitor {
public:
    /// @throws kivo::ContractViolationException "specification != 0"
    ParameterValueGroupValidationVisitor(Specification const* specification, ParameterErrors& errors);

    bool visitGroupStart(ParameterValueGroup& group) override;

private:
    ParameterGroup const* mRootGroup;
    ParameterErrors& mErrors;
};

} // namespace kivo::configuration
