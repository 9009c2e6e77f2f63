#pragma once

#include "schema/StoredOrigin.h"

namespace kivo::configuration {

class ParameterValueGroup;

/// A copy of a tree, in which every text and every group has an origin of its own, which no other one shares.
/// @param origin for those that have none
ParameterValueGroup separateOrigins(ParameterValueGroup const& tree, StoredOrigin const& origin);

} // namespace kivo::configuration
