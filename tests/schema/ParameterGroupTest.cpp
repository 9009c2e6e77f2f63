#include <configuration/ConfigurationException.h>
#include <configuration/ParameterGroupSpecialization.h>
#include <configuration/Specification.h>

#include "schema/ParameterItemFinder.h"
#include "schema/SpecificationParameterGroup.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Schema.h"
#include "support/WalkLog.h"

using namespace kivo::configuration;
using namespace kivo::test;
using Special = ParameterGroupSpecialization;

namespace {

class ParameterGroupTest : public ManagerTest {};

/// The factories of a role, and what they make when all that they take is given.
struct Kind {
    std::string word, role, made;
    ParameterGroup* (*create)(GroupFields const& fields);
    ParameterGroup* (*specialize)(char const* id, char const* description);
};
Kind const KINDS[] = {
    {"Group", "a group constraint", "Constraint optional", [](auto& fields) { return createGroup(fields); },
     [](auto id, auto) -> ParameterGroup* { return Special::CreateGroup(id); }},
    {"Container", "a container", "Container optional unbounded", [](auto& fields) { return createContainer(fields); },
     [](auto id, auto text) -> ParameterGroup* { return Special::CreateContainer(id, text, true, true); }},
    {"Mutually Exclusive", "a mutually exclusive constraint", "Constraint exclusive optional",
     [](auto& fields) { return createMutuallyExclusive(fields); },
     [](auto id, auto text) -> ParameterGroup* { return Special::CreateMutuallyExclusive(id, text, true); }},
};

TEST_F(ParameterGroupTest, FactoriesMakeAndSpecializeTheRoles) {
    auto* bare = createParameter({.id = "bare"}); // a parameter's id is not taken
    createGroup({.id = "taken"});
    for (auto const& [word, role, made, create, specialize] : KINDS) {
        auto* group = create({.id = word.c_str(), .name = "Name", .optional = true, .unbounded = true});
        EXPECT_EQ(describe(*group), made);
        group->addItem(bare);
        auto const fault = [make = create](GroupFields const& fields) { return whatOf([&] { make(fields); }); };
        EXPECT_EQ(fault({.id = "TAKEN", .description = ""}), word + " id \"TAKEN\" is not unique");
        auto const missing = contractText("description && strlen(description) > 0"); // and nothing is registered
        EXPECT_EQ(fault({.id = "bare", .description = nullptr}), word == "Mutually Exclusive" ? "<nothing>" : missing);
    }
    for (auto const& kind : KINDS) {
        for (std::string const id : {"Group", "Container", "Mutually Exclusive", "none%s"}) {
            std::string made;
            auto const thrown = whatOf<ConfigurationException>([&] {
                auto const* special = kind.specialize(id.c_str(), "Other");
                made = describe(*special) + " " + special->getName() + ": " + walkLog(*special);
                EXPECT_STREQ(special->getDescription(), kind.word == "Group" ? "Description" : "Other");
            });
            auto const fault = id == "none%s" ? "was not found" : "is not " + kind.role;
            EXPECT_EQ(made.empty() ? thrown : made, id == kind.word
                                                        ? kind.made + " " + id + ": <" + id + " >" + id
                                                        : kind.word + " to specialize \"" + id + "\" " + fault);
        }
        EXPECT_STREQ(kind.specialize(kind.word.c_str(), nullptr)->getDescription(), "Description");
    }
}

TEST_F(ParameterGroupTest, ASpecificationLooksItsRootUpOnEveryCall) {
    Specification const tool("Tool%s", "Does");
    EXPECT_TRUE(tool == Specification("tOOL%S", "Other") && !(tool == Specification("Tool", "Does")));
    auto const root = [&] { return whatOf<ConfigurationException>([&] { tool.getParameterGroup(); }); };
    EXPECT_EQ(root(), "Group \"Tool%s\" was not found in the registry");
    createParameter({.id = "tool%S"});
    EXPECT_EQ(root(), "\"Tool%s\" is not a parameter group");
    manager().reset();
    auto const* group = createMutuallyExclusive({.id = "tool%s"});
    EXPECT_EQ(tool.getParameterGroup(), group);
    SpecificationParameterGroup const above(tool);
    EXPECT_EQ(std::string(above.getName()) + above.getDescription(), "$SpecName$$SpecDesc$");
    EXPECT_EQ(walkLog(above), "<$SpecId$ <tool%s >tool%s >$SpecId$");
}

struct Schema {
    Items items;
    Parameter* a = items.parameter({.id = "a"});
    Parameter* b = items.parameter({.id = "b"});
    Parameter* upperB = items.parameter({.id = "B"});
    ParameterGroup* inner = items.group({.id = "inner"}, {b});
    ParameterGroup* root = items.group({.id = "root"}, {a, inner, upperB});
};

TEST(ParameterGroup, IsWalkedDepthFirstWithMiddlesBetween) {
    Schema const schema;
    auto const& root = *schema.root;
    EXPECT_EQ(walkLog(root), "<root a | <inner b >inner | B >root");
    EXPECT_EQ(walkLog(root, {.decline = "inner"}), "<root a | <inner | B >root");
    EXPECT_EQ(walkLog(root, {.decline = "a"}), walkLog(root));
    EXPECT_EQ(walkLog(root, {.decline = "root"}), "<root");
    ParameterItemFinder decliner("ROOT");
    ParameterVisitor accepter;
    EXPECT_FALSE(root.accept(decliner) || schema.a->accept(decliner));
    EXPECT_TRUE(root.accept(accepter) && schema.a->accept(accepter));
    EXPECT_EQ(root.getItem("b", false), schema.upperB);
    EXPECT_EQ(root.getItem("B", true), schema.b);
    EXPECT_EQ(root.getItem("Root", true), &root);
}

TEST(ParameterGroup, MayChangeDuringTheWalk) {
    auto const log = [](char const* event, void (*change)(Schema&)) {
        Schema schema;
        return walkLog(*schema.root, {.onEvent = doAt(event, [&] { change(schema); })});
    };
    auto const violation = "!" + contractText("index < getNumberOfItems()");
    EXPECT_EQ(log("<root", [](auto& s) { s.root->addItem(s.a); }), "<root a | <inner b >inner | B | a >root");
    EXPECT_EQ(log("<root", [](auto& s) { s.root->removeItem("a"); }), "<root <inner b >inner | B >root");
    EXPECT_EQ(log("b", [](auto& s) { s.root->addItem(s.a); }), "<root a | <inner b >inner | B >root");
    EXPECT_EQ(log("B", [](auto& s) { s.root->removeItem("b"); }), "<root a | <inner b >inner | B >root");
    EXPECT_EQ(log(">inner", [](auto& s) { s.root->removeItem("b"); }), "<root a | <inner b >inner | " + violation);
}

} // namespace
