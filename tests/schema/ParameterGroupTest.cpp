#include <configuration/ConfigurationException.h>
#include <configuration/ParameterGroupSpecialization.h>

#include "schema/ParameterItemFinder.h"
#include "schema/SpecificationParameterGroup.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/WalkLog.h"

using namespace kivo::configuration;
using namespace kivo::test;
using Special = ParameterGroupSpecialization;

namespace {

class ParameterGroupTest : public ManagerTest {};

/// The role, name and walk of a group that is made, or what is thrown.
std::string groupOf(auto make) {
    std::string text;
    auto const thrown = whatOf([&] {
        ParameterGroup const& made = *make();
        text = std::string(made.getItemTypeName()) + (made.itemsAreExclusive() ? " exclusive" : "") +
               (made.isOptional() ? " optional " : " ") + (made.isUnbounded() ? "unbounded " : "") + made.getName() +
               ", " + made.getDescription() + ": " + walkLog(made);
    });
    return text.empty() ? thrown : text;
}

// Ids are unique among groups only, whatever their roles.
TEST_F(ParameterGroupTest, FactoriesMakeTheRoles) {
    using G = ParameterGroup;
    createItem("bare");
    createItem("taken{}");
    auto const noDescription = contractText("description && strlen(description) > 0"); // and nothing is registered
    EXPECT_EQ(groupOf([] { return G::CreateGroup("bare", "n", nullptr); }), noDescription);
    EXPECT_EQ(groupOf([] { return G::CreateContainer("bare", "n", "", true, true); }), noDescription);
    EXPECT_EQ(groupOf([] { return G::CreateGroup("g", "n", "d"); }), "Constraint optional n, d: <g >g");
    EXPECT_EQ(groupOf([] { return G::CreateGroup("TAKEN", "", ""); }), "Group id \"TAKEN\" is not unique");
    EXPECT_EQ(groupOf([] { return G::CreateContainer("c", "n", "d", true, true); }),
              "Container optional unbounded n, d: <c >c");
    EXPECT_EQ(groupOf([] { return G::CreateContainer("g", "", "", true, true); }), "Container id \"g\" is not unique");
    EXPECT_EQ(groupOf([] { return G::CreateMutuallyExclusive("bare", "n", nullptr, true); }),
              "Constraint exclusive optional n,  : <bare >bare");
    EXPECT_EQ(groupOf([] { return G::CreateMutuallyExclusive("C", "", "", true); }),
              "Mutually Exclusive id \"C\" is not unique");
}

// A specialization has the id and name of its base's id, and none of its items.
TEST_F(ParameterGroupTest, SpecializationsHaveTheRolesOfTheirBases) {
    createItem("g/n(a)");
    createItem("c/n{b}");
    createItem("x/n[d]");
    auto const group = [](auto id) { return groupOf([=] { return Special::CreateGroup(id); }); };
    auto const container = [](auto id, char const* description) {
        return groupOf([=] { return Special::CreateContainer(id, description, true, true); });
    };
    auto const exclusive = [](auto id, char const* description) {
        return groupOf([=] { return Special::CreateMutuallyExclusive(id, description, true); });
    };
    EXPECT_EQ(group("G"), "Constraint optional g, Description: <g >g");
    EXPECT_EQ(container("C", nullptr), "Container optional unbounded c, Description: <c >c");
    EXPECT_EQ(container("c", "Other"), "Container optional unbounded c, Other: <c >c");
    EXPECT_EQ(exclusive("X", nullptr), "Constraint exclusive optional x, Description: <x >x");
    EXPECT_EQ(group("none%s"), "Group to specialize \"none%s\" was not found");
    EXPECT_EQ(container("none%s", "d"), "Container to specialize \"none%s\" was not found");
    EXPECT_EQ(exclusive("none%s", "d"), "Mutually Exclusive to specialize \"none%s\" was not found");
    EXPECT_EQ(group("c"), "Group to specialize \"c\" is not a group constraint");
    EXPECT_EQ(group("x"), "Group to specialize \"x\" is not a group constraint");
    EXPECT_EQ(container("g", "d"), "Container to specialize \"g\" is not a container");
    EXPECT_EQ(container("x", "d"), "Container to specialize \"x\" is not a container");
    for (std::string const id : {"g", "c"}) {
        EXPECT_EQ(exclusive(id.c_str(), "d"),
                  "Mutually Exclusive to specialize \"" + id + "\" is not a mutually exclusive constraint");
    }
}

TEST_F(ParameterGroupTest, ASpecificationLooksItsRootUpOnEveryCall) {
    Specification const tool("Tool%s", "Does");
    EXPECT_TRUE(tool == Specification("tOOL%S", "Other") && !(tool == Specification("Tool", "Does")));
    auto const root = [&] { return whatOf<ConfigurationException>([&] { tool.getParameterGroup(); }); };
    EXPECT_EQ(root(), "Group \"Tool%s\" was not found in the registry");
    createItem("tool%S");
    EXPECT_EQ(root(), "\"Tool%s\" is not a parameter group");
    manager().reset();
    auto const* group = createItem("tool%s[]");
    EXPECT_EQ(tool.getParameterGroup(), group);
    SpecificationParameterGroup const above(tool);
    EXPECT_EQ(std::string(above.getName()) + above.getDescription(), "$SpecName$$SpecDesc$");
    EXPECT_EQ(walkLog(above), "<$SpecId$ <tool%s >tool%s >$SpecId$");
}

TEST(ParameterGroup, IsWalkedDepthFirstWithMiddlesBetween) {
    Items items;
    auto const& root = *items.group("root{a inner{b} B}");
    auto const& a = *root.getItem(0ul);
    EXPECT_EQ(walkLog(root), "<root a | <inner b >inner | B >root");
    EXPECT_EQ(walkLog(root, {.decline = "inner"}), "<root a | <inner | B >root");
    EXPECT_EQ(walkLog(root, {.decline = "a"}), walkLog(root));
    EXPECT_EQ(walkLog(root, {.decline = "root"}), "<root");
    ParameterItemFinder decliner("ROOT");
    ParameterVisitor accepter;
    EXPECT_TRUE(!root.accept(decliner) && !a.accept(decliner) && root.accept(accepter) && a.accept(accepter));
    EXPECT_EQ(root.getItem("b", false), root.getItem(2));
    EXPECT_STREQ(root.getItem("B", true)->getId(), "b");
    EXPECT_EQ(root.getItem("Root", true), &root);
}

TEST(ParameterGroup, FindsInALongListThatChanges) {
    Items items;
    auto& group = *items.group("g{a b c d e f g h i}");
    EXPECT_FALSE(group.getItem("j", false));
    group.addItem(items.parameter("j"));
    EXPECT_TRUE(group.getItem("J", false));
    group.removeItem("A");
    EXPECT_FALSE(group.getItem("a", false));
}

TEST(ParameterGroup, MayChangeDuringTheWalk) {
    auto const log = [](char const* event, void (*change)(ParameterGroup&)) {
        Items items;
        auto& root = *items.group("root{a inner{b} B}");
        return walkLog(root, {.at = event, .action = [&] { change(root); }});
    };
    auto const add = [](ParameterGroup& root) { root.addItem(root.getItem(0ul)); };
    auto const removeA = [](ParameterGroup& root) { root.removeItem("a"); };
    auto const removeB = [](ParameterGroup& root) { root.removeItem("b"); };
    auto const violation = "!" + contractText("index < getNumberOfItems()");
    EXPECT_EQ(log("<root", add), "<root a | <inner b >inner | B | a >root");
    EXPECT_EQ(log("<root", removeA), "<root <inner b >inner | B >root");
    EXPECT_EQ(log("B", removeB), "<root a | <inner b >inner | B >root");
    EXPECT_EQ(log(">inner", removeB), "<root a | <inner b >inner | " + violation);
}

} // namespace
