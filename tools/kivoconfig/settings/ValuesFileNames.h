#pragma once

namespace kivo::configuration {
class Specification;
} // namespace kivo::configuration

namespace kivoconfig {

/// Checks that there can be values files for a specification: its id is the name of their document element.
/// @throws CallFault the id is no XML name
void requireValuesFiles(kivo::configuration::Specification const& specification);

} // namespace kivoconfig
