#pragma once

// Schemas and value trees as one line of text, so that a case is a row of texts:
//
//     auto* specification = createTool("tool?{a b/name:int?=7 file<path> u?* h~ in*{c} con(d) choice?[x y]}");
//     auto values = treeOf("{tool{a=1 u=1,2 in{c=<none>}}}");
//     EXPECT_EQ(toText(*values), "?{tool?{a?=1 u?=1,2 in?{c?=<none>}}}");
//
// An item of a schema is its id, then, where they differ from the usual, its name behind "/", its type behind ":"
// (string else), its value name in "<>", "?" when it is optional, "*" unbounded, "~" hidden, and a default behind "=".
// A group's items stand in "{}" for a container, "()" for a group constraint, "[]" for a mutually exclusive one. The
// Manager owns the items. All nodes of a tree are unbound.

#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include <memory>
#include <string>
#include <string_view>
#include <tuple>

namespace kivo::test {

/// A number of items called #1, #2, …, each with the value "x": they make a schema or tree larger and change nothing
/// else. Larger ones are searched in other ways.
struct Padding {
    int schema = 0; ///< added behind the items of the specification's group
    int values = 0; ///< added before the items of groups named "tool"
};

configuration::ParameterItem* createItem(std::string_view text);
configuration::Specification* createTool(std::string_view text, Padding const& padding = {});
std::unique_ptr<configuration::ParameterValueGroup> treeOf(std::string_view text, Padding const& padding = {});

/// A tree as toText() shows it, without padding.
std::string shown(configuration::ParameterValueItem const& tree);

/// Name a case by its row; one of a row and a padding also by its size.
struct Label {
    std::string operator()(auto const& row) const { return row.param.label; }
};
struct SizedLabel {
    std::string operator()(auto const& row) const {
        return std::get<0>(row.param).label + std::string(std::get<1>(row.param).schema > 0 ? "Large" : "Small");
    }
};

} // namespace kivo::test
