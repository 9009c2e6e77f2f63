#pragma once

#include <memory>
#include <unordered_set>
#include <vector>

namespace kivo::configuration {

class ParameterValueGroup;
class ParameterValueItem;

/// Takes all children out of a group, in their order.
std::vector<std::unique_ptr<ParameterValueItem>> takeItems(ParameterValueGroup& group);

/// Destroys some of a group's children and keeps the order of the others. Takes time linear in the number of children,
/// where removing them one by one would be quadratic.
void destroyItems(ParameterValueGroup& group, std::unordered_set<ParameterValueItem const*> const& items);

} // namespace kivo::configuration
