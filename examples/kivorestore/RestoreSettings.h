#pragma once

namespace kivo::configuration {
class Manager;
class ParameterValueGroup;
class Specification;
} // namespace kivo::configuration

/// Describes what the tool accepts, under the name "kivorestore".
/// @return the specification, owned by the manager
kivo::configuration::Specification const* describeRestore(kivo::configuration::Manager& manager);

/// The values that the tool sets itself, which nobody can override.
kivo::configuration::ParameterValueGroup restoreValues();
