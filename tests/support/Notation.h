#pragma once

// Schemas and value trees as one line of text, in the notation of tests/data/README.md: a case is a row of texts.

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kivo::test {

/// A number of items called #1, #2, …, each with the value "x": they make a schema or tree larger and change nothing
/// else. Larger ones are searched in other ways. Trees are shown without them.
struct Padding {
    int schema = 0; ///< added after the items of the specification's group
    int values = 0; ///< added before the items of groups named "tool"
};

/// Makes schema items that no manager knows, and owns them.
class Items {
public:
    configuration::ParameterItem* item(std::string_view text);
    configuration::Parameter* parameter(std::string_view text);
    configuration::ParameterGroup* group(std::string_view text);

private:
    std::vector<std::unique_ptr<configuration::ParameterItem>> mItems;
};

/// Make items that the Manager owns.
configuration::ParameterItem* createItem(std::string_view text);
configuration::Specification* createTool(std::string_view text, Padding const& padding = {});

/// All nodes are unbound; or those that have an item of their id in a schema group are bound to it.
std::unique_ptr<configuration::ParameterValueGroup> treeOf(std::string_view text, Padding const& padding = {});
std::unique_ptr<configuration::ParameterValueGroup> treeOf(std::string_view text,
                                                           configuration::ParameterGroup const& schema);

/// A node and all below it.
std::string toText(configuration::ParameterValueItem const& item);
/// The texts of a value, joined by commas.
std::string textsOf(configuration::ParameterValue const& value);
/// The id of a node, empty when it has none.
std::string idOf(configuration::ParameterValueItem const& item);

} // namespace kivo::test
