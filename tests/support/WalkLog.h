#pragma once

// A walk as one line, so that one comparison checks its order:
//
//     EXPECT_EQ(walkLog(root), "<root a | <inner b >inner | c >root");                      a schema
//     EXPECT_EQ(walkLog(values), "<root a=1,2 <inner b=<none> >inner >root");               a value tree
//     EXPECT_EQ(walkLog(root, {.decline = "inner"}), "<root a | <inner | c >root");
//     walkLog(root, {.onEvent = doAt(">inner", [&] { root.removeItem("c"); })})
//
// When the walk throws, the line ends with "!" and the text of the exception.

#include <functional>
#include <string>

namespace kivo::configuration {
class ParameterItem;
class ParameterValueItem;
} // namespace kivo::configuration

namespace kivo::test {

struct WalkOptions {
    /// Id of an item for which the visitor returns false.
    std::string decline = {};
    /// Called after each event with its text ("<root", "a", "|", "a=1", ">root").
    std::function<void(std::string const& event)> onEvent = {};
    /// Whether the visitor of values calls itself a mutator.
    bool isMutator = false;
};

/// Does something at each event of one text.
inline std::function<void(std::string const&)> doAt(std::string const& event, std::function<void()> const& action) {
    return [=](std::string const& current) {
        if (current == event) {
            action();
        }
    };
}

std::string walkLog(configuration::ParameterItem const& item, WalkOptions const& options = {});
std::string walkLog(configuration::ParameterValueItem& item, WalkOptions const& options = {});

} // namespace kivo::test
