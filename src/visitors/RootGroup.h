#pragma once

namespace kivo::configuration {

class ParameterGroup;
class Specification;

/// The root group of a specification that a visitor was built for.
/// @throws kivo::ContractViolationException "specification != 0"
ParameterGroup const* rootGroupOf(Specification const* specification);

} // namespace kivo::configuration
