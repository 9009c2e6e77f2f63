#pragma once

#include <configuration/ParameterErrors.h>
#include <configuration/ParameterValueGroup.h>

namespace kivo::configuration {

/// Lets a visitor see a tree, and throws all faults that it found at once.
template <class Visitor>
void runPhase(ParameterValueGroup& values, ParameterErrors const& errors, Visitor&& visitor) {
    values.accept(visitor);
    errors.throwIfErrors();
}

} // namespace kivo::configuration
