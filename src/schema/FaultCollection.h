#pragma once

#include "schema/Rule.h"
#include "schema/StoredOrigin.h"

#include <exception>

namespace kivo::configuration {

class ParameterErrors;

/// Adds what an exception says to a list, with its origin or, where it has none, another one. To be called where the
/// exception was caught.
/// @throws std::bad_alloc again: that memory has run out is no fault of a user
void addException(ParameterErrors& errors, Rule rule, StoredOrigin const& origin, std::exception const& exception);

/// Runs a step of a request. A step that finds a fault ends the request by an exception; where faults are collected
/// instead, as for an inspection, it is noted, and the caller goes on without what the step would have done.
/// @param collected null: exceptions pass
/// @param rule      for a fault that does not say which rule it breaks
/// @param origin    for a fault that does not say where it is
/// @return whether the step was done
template <class Step>
bool runOrCollect(ParameterErrors* collected, Rule rule, StoredOrigin const& origin, Step step) {
    if (!collected) {
        step();
        return true;
    }
    try {
        step();
        return true;
    } catch (std::exception const& exception) {
        addException(*collected, rule, origin, exception);
        return false;
    }
}

} // namespace kivo::configuration
