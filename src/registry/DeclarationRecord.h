#pragma once

#include "schema/StoredOrigin.h"

#include <unordered_map>
#include <vector>

namespace kivo::configuration {

class Parameter;
class ParameterGroup;

/// What registry files declared, for those who look at it afterwards. The manager owns it all.
struct DeclarationRecord {
    std::vector<Parameter const*> parameters;
    std::vector<ParameterGroup const*> specifications; ///< their root groups
    /// Where each item of a group stands, by the item's index.
    std::unordered_map<ParameterGroup const*, std::vector<StoredOrigin>> itemPlaces;
};

} // namespace kivo::configuration
