#pragma once

// A walk as one line, so that one comparison checks its order:
//
//     EXPECT_EQ(walkLog(root), "<root a | <inner b >inner | c >root");                      a schema
//     EXPECT_EQ(walkLog(values), "<root a=1,2 <inner b=<none> >inner >root");               a value tree
//     walkLog(root, {.at = ">inner", .action = [&] { root.removeItem("c"); }})
//
// When it throws, the line ends with "!" and the text of the exception.

#include "support/Notation.h"

#include <configuration/ParameterValueVisitor.h>
#include <configuration/ParameterVisitor.h>

#include <functional>

namespace kivo::test {

struct WalkOptions {
    std::string decline = {};          ///< id of an item for which the visitor returns false
    std::string at = {};               ///< text of an event ("<root", "a", "|", "a=1", ">root")
    std::function<void()> action = {}; ///< what is done at this event
    bool isMutator = false;            ///< whether the visitor of values calls itself a mutator
};

struct Walk final : configuration::ParameterVisitor, configuration::ParameterValueVisitor {
    using Group = configuration::ParameterGroup;
    using ValueGroup = configuration::ParameterValueGroup;

    explicit Walk(WalkOptions const& given) : ParameterValueVisitor(given.isMutator), options(given) {}

    bool visitGroupStart(Group const& group) override { return add("<", group.getId()); }
    bool visitGroupStart(ValueGroup& group) override { return add("<", idOf(group)); }
    void visitGroupMiddle(Group const&) override { add("|"); }
    void visitGroupEnd(Group const& group) override { add(">", group.getId()); }
    void visitGroupEnd(ValueGroup& group) override { add(">", idOf(group)); }
    bool visitParameter(configuration::Parameter const& parameter) override { return add("", parameter.getId()); }
    bool visitParameterValue(configuration::ParameterValue& value) override {
        return add("", idOf(value), "=" + textsOf(value));
    }

    /// @return whether the item of this id is not to be declined
    bool add(std::string const& mark, std::string const& id = "", std::string const& texts = "") {
        line += (line.empty() ? "" : " ") + mark + id + texts;
        if (mark + id + texts == options.at) {
            options.action();
        }
        return id.empty() || id != options.decline;
    }

    WalkOptions const& options;
    std::string line;
};

template <class Item>
std::string walkLog(Item& item, WalkOptions const& options = {}) {
    Walk walk(options);
    try {
        item.accept(walk);
    } catch (std::exception const& thrown) {
        walk.line += std::string(" !") + thrown.what();
    }
    return walk.line;
}

} // namespace kivo::test
