#include <configuration/ContractViolationException.h>
#include <configuration/ParameterVisitor.h>

#include "support/Exceptions.h"
#include "support/Schema.h"
#include "support/ValueTree.h"
#include "support/VirtualSlot.h"
#include "support/WalkLog.h"

#include <gmock/gmock.h>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

class ParameterVisitorTest : public testing::Test {
protected:
    Items items;
    Parameter* a = items.parameter({.id = "a"});
    Parameter* b = items.parameter({.id = "b"});
    Parameter* c = items.parameter({.id = "c"});
    ParameterGroup* inner = items.group({.id = "inner"}, {b});
    ParameterGroup* root = items.group({.id = "root"}, {a, inner, c});

    std::string logWith(std::string const& event, std::function<void()> const& action) const {
        return walkLog(*root, {.onEvent = doAt(event, action)});
    }
};

TEST_F(ParameterVisitorTest, VisitsDepthFirstWithMiddlesBetween) {
    EXPECT_EQ(walkLog(*root), "<root a | <inner b >inner | c >root");
    EXPECT_EQ(walkLog(*items.group({.id = "empty"})), "<empty >empty");
    EXPECT_EQ(walkLog(*items.group({.id = "twice"}, {a, a})), "<twice a | a >twice");
    EXPECT_EQ(walkLog(*a), "a");
}

TEST_F(ParameterVisitorTest, DecliningStopsNeitherSiblingsNorParents) {
    EXPECT_EQ(walkLog(*root, {.decline = "inner"}), "<root a | <inner | c >root");
    EXPECT_EQ(walkLog(*root, {.decline = "a"}), "<root a | <inner b >inner | c >root");
    EXPECT_EQ(walkLog(*root, {.decline = "root"}), "<root");

    struct Decliner : ParameterVisitor {
        bool visitGroupStart(ParameterGroup const&) override { return false; }
        bool visitParameter(Parameter const&) override { return false; }
    } decliner;
    ParameterVisitor accepter;
    EXPECT_FALSE(root->accept(decliner) || a->accept(decliner));
    EXPECT_TRUE(root->accept(accepter) && a->accept(accepter));
}

TEST_F(ParameterVisitorTest, CountsTheItemsBehindTheStart) {
    EXPECT_EQ(logWith("<root", [&] { root->addItem(b); }), "<root a | <inner b >inner | c | b >root");
    EXPECT_EQ(logWith("<root", [&] { root->removeItem("a"); }), "<root <inner b >inner | c | b >root");
    EXPECT_EQ(logWith("b", [&] { root->addItem(a); }), "<root <inner b >inner | c | b >root");
}

TEST_F(ParameterVisitorTest, MissesRemovedItemsAfterTheMiddle) {
    auto const violation = " !" + contractText("index < getNumberOfItems()");
    EXPECT_EQ(logWith("c", [&] { root->removeItem("c"); }), "<root a | <inner b >inner | c >root");
    root->addItem(c);
    EXPECT_EQ(logWith(">inner", [&] { root->removeItem("c"); }), "<root a | <inner b >inner |" + violation);
    EXPECT_EQ(logWith("|", [&] { root->removeItem("a"); }), "<root a |" + violation);
}

TEST_F(ParameterVisitorTest, BindsValuesForWalkersThatBuildATree) {
    struct Binder : ParameterVisitor {
        using ParameterVisitor::assignParameterItem;
    } binder;
    auto const leaf = value("x", "1");
    auto const branch = valueGroup("x");
    binder.assignParameterItem(*leaf, a);
    binder.assignParameterItem(*branch, root);
    EXPECT_EQ(toText(*leaf) + " " + toText(*branch), "a=1 root{}");
    EXPECT_EQ(whatOf([&] { binder.assignParameterItem(*leaf, root); }), "\"root\" must be a parameter");
    EXPECT_EQ(whatOf<kivo::ContractViolationException>([&] { binder.assignParameterItem(*branch, nullptr); }),
              contractText("parameterItem != 0"));
}

TEST_F(ParameterVisitorTest, KeepsTheOrderOfVirtualOperations) {
    EXPECT_THAT(slotsOf(&ParameterVisitor::visitGroupStart, &ParameterVisitor::visitGroupMiddle,
                        &ParameterVisitor::visitGroupEnd, &ParameterVisitor::visitParameter),
                testing::ElementsAre(2, 3, 4, 5));
}

} // namespace
