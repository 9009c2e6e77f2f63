#include <configuration/ParameterValueVisitor.h>

#include "support/ValueTree.h"
#include "support/VirtualSlot.h"
#include "support/WalkLog.h"

#include <gmock/gmock.h>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

class ParameterValueVisitorTest : public testing::Test {
protected:
    std::unique_ptr<ParameterValueGroup> root =
        valueGroup("root", value("a", "1", "2"), valueGroup("inner", value("b", nullptr)), value("c", ""));
    ParameterValueGroup& inner = static_cast<ParameterValueGroup&>(*root->getItem("inner"));
    std::vector<std::unique_ptr<ParameterValueItem>> detached;

    std::string logWith(std::string const& event, std::function<void()> const& action, bool isMutator = true) {
        return walkLog(*root, {.onEvent = doAt(event, action), .isMutator = isMutator});
    }

    void detach(ParameterValueGroup& group, char const* id) {
        detached.emplace_back(group.getItem(id));
        group.removeItem(id);
    }
};

TEST_F(ParameterValueVisitorTest, VisitsDepthFirstInOrder) {
    for (bool const isMutator : {false, true}) {
        EXPECT_EQ(walkLog(*root, {.isMutator = isMutator}), "<root a=1,2 <inner b=<none> >inner c= >root");
        EXPECT_EQ(walkLog(*root, {.decline = "inner", .isMutator = isMutator}), "<root a=1,2 <inner c= >root");
        EXPECT_EQ(walkLog(*root, {.decline = "a", .isMutator = isMutator}), walkLog(*root));
    }
    EXPECT_EQ(walkLog(*root, {.decline = "root"}), "<root");
    EXPECT_EQ(walkLog(*root->getItem("a")), "a=1,2");

    struct Decliner : ParameterValueVisitor {
        Decliner() : ParameterValueVisitor(false) {}
        bool visitGroupStart(ParameterValueGroup&) override { return false; }
        bool visitParameterValue(ParameterValue&) override { return false; }
    } decliner;
    ParameterValueVisitor accepter(true);
    EXPECT_FALSE(root->accept(decliner) || root->getItem("a")->accept(decliner));
    EXPECT_TRUE(root->accept(accepter) && root->getItem("a")->accept(accepter));
}

TEST_F(ParameterValueVisitorTest, AMutatorVisitsTheItemsOfTheStart) {
    EXPECT_EQ(logWith("<root", [&] { root->addValue("d", "1"); }), "<root a=1,2 <inner b=<none> >inner c= d=1 >root");
    EXPECT_EQ(logWith("c=", [&] { root->addValue("e", "1"); }), "<root a=1,2 <inner b=<none> >inner c= d=1 >root");
    EXPECT_EQ(logWith("<root", [&] { detach(*root, "a"); }), "<root <inner b=<none> >inner c= d=1 e=1 >root");
}

TEST_F(ParameterValueVisitorTest, AMutatorStillVisitsWhatItDetached) {
    EXPECT_EQ(logWith("a=1,2",
                      [&] {
                          detach(*root, "inner");
                          detach(*root, "c");
                          detach(inner, "b"); // its group is not yet under way
                      }),
              "<root a=1,2 <inner >inner c= >root");
    EXPECT_EQ(toText(*root), "root?{a?=1,2}");
}

TEST_F(ParameterValueVisitorTest, AMutatorMayMoveItemsBetweenGroups) {
    EXPECT_EQ(logWith("a=1,2",
                      [&] {
                          detach(*root, "c");
                          inner.addItem(detached.back().release());
                      }),
              "<root a=1,2 <inner b=<none> c= >inner c= >root");
    EXPECT_EQ(toText(*root), "root?{a?=1,2 inner?{b?=<none> c?=}}");
}

TEST_F(ParameterValueVisitorTest, OthersVisitTheNumberOfItemsOfTheStart) {
    EXPECT_EQ(logWith(
                  "<root", [&] { root->addValue("d", "1"); }, false),
              "<root a=1,2 <inner b=<none> >inner c= d=1 >root");
    EXPECT_EQ(logWith(
                  "a=1,2", [&] { root->addValue("e", "1"); }, false),
              "<root a=1,2 <inner b=<none> >inner c= d=1 >root");
}

TEST_F(ParameterValueVisitorTest, KeepsTheOrderOfVirtualOperations) {
    EXPECT_THAT(slotsOf(&ParameterValueVisitor::visitGroupStart, &ParameterValueVisitor::visitGroupEnd,
                        &ParameterValueVisitor::visitParameterValue),
                testing::ElementsAre(2, 3, 4));
}

} // namespace
