#pragma once

namespace kivoconfig {

/// The file docs/registry.xsd.
extern char const* const REGISTRY_SCHEMA;

} // namespace kivoconfig
