#pragma once

namespace kivo::configuration {

class ParameterErrors;
class ParameterGroup;

/// Remembers that some parameter of the process has a former name. Tools without any are spared the walk of
/// checkFormerNames(), which takes about as long as registering the items.
void noteFormerName() noexcept;
bool areThereFormerNames() noexcept;

/// Checks that the former names of the parameters below a group name nothing else there: no id or name of an item, and
/// no other parameter's former name. A parameter may stand in several places. Letter case is ignored.
/// @param collected takes what would be thrown, for all parameters; null: the first fault is thrown
/// @throws ConfigurationException "Former name \"<former>\" of parameter \"<name>\" is taken by \"<name of the
/// other>\""
void checkFormerNames(ParameterGroup const& root, ParameterErrors* collected = nullptr);

} // namespace kivo::configuration
