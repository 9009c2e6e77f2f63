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
    /// @param collects as the second constructor of SecondPhaseValidationVisitor, for an inspection
    ParameterValueGroupValidationVisitor(Specification const* specification, ParameterErrors& errors,
                                         bool collects = false);

    bool visitGroupStart(ParameterValueGroup& group) override;

private:
    ParameterGroup const* mRootGroup;
    ParameterErrors& mErrors;
    bool mCollects;
};

} // namespace kivo::configuration
