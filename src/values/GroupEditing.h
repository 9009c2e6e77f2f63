#pragma once

#include <unordered_set>

namespace kivo::configuration {

class ParameterValueGroup;
class ParameterValueItem;

/// Destroys some of a group's children and keeps the order of the others. Takes time linear in the number of children,
/// where removing them one by one would be quadratic.
void destroyItems(ParameterValueGroup& group, std::unordered_set<ParameterValueItem const*> const& items);

} // namespace kivo::configuration
