#pragma once

#include <string>
#include <vector>

namespace kivo::configuration {
class Specification;
} // namespace kivo::configuration

namespace kivoconfig {

// What the installation that the environment names describes. The first use loads its registry.

/// All specifications, sorted by id, letter case being the same. They live as long as the process.
/// @throws RegistryFault
std::vector<kivo::configuration::Specification const*> allSpecifications();

/// The specification of an id.
/// @throws CallFault when there is none; RegistryFault
kivo::configuration::Specification const& findSpecification(std::string const& id);

} // namespace kivoconfig
