#include <configuration/ConfigurationException.h>

#include "schema/ParameterItemFinder.h"
#include "schema/SpecificationParameterGroup.h"
#include "support/CaseFile.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/WalkLog.h"

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

class ParameterGroupTest : public ManagerTest {};

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

TEST(ParameterGroup, IsWalkedDepthFirstAndMayChangeMeanwhile) {
    checkCases("schema/walks.txt", [](FileCase const& row) {
        Items items;
        auto& root = *items.group("root{a inner{b} B}");
        auto const change = [&] {
            if (!root.removeItem(row["remove"].c_str())) {
                root.addItem(root.getItem(0ul));
            }
        };
        return walkLog(root, {.decline = row["decline"], .at = row["at"], .action = change}) + "\n";
    });
}

TEST(ParameterGroup, FindsWhatAWalkWouldFindFirstAndFollowsChanges) {
    Items items;
    auto const& root = *items.group("root{a inner{b} B}");
    auto const& a = *root.getItem(0ul);
    ParameterItemFinder decliner("ROOT");
    ParameterVisitor accepter;
    EXPECT_TRUE(!root.accept(decliner) && !a.accept(decliner) && root.accept(accepter) && a.accept(accepter));
    EXPECT_EQ(root.getItem("b", false), root.getItem(2));
    EXPECT_STREQ(root.getItem("B", true)->getId(), "b");
    EXPECT_EQ(root.getItem("Root", true), &root);
    auto& group = *items.group("long{a b c d e f g h i}");
    EXPECT_FALSE(group.getItem("j", false));
    group.addItem(items.parameter("j"));
    EXPECT_TRUE(group.getItem("J", false));
    group.removeItem("A");
    EXPECT_FALSE(group.getItem("a", false));
}

} // namespace
