#include <configuration/ConfigurationException.h>

#include "schema/SpecificationParameterGroup.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Schema.h"
#include "support/WalkLog.h"

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

class SpecificationTest : public ManagerTest {};

TEST_F(SpecificationTest, LooksItsGroupUpOnEveryCall) {
    Specification const tool("Tool%s", "Does");
    auto const root = [&] { return whatOf<ConfigurationException>([&] { tool.getParameterGroup(); }); };
    EXPECT_EQ(root(), "Group \"Tool%s\" was not found in the registry");
    createParameter({.id = "tool%S"});
    EXPECT_EQ(root(), "\"Tool%s\" is not a parameter group");
    createGroup({.id = "tool%s"});
    EXPECT_EQ(root(), "Duplicate item \"Tool%s\"");
    manager().reset();
    auto const* group = createMutuallyExclusive({.id = "tool%s"});
    EXPECT_EQ(tool.getParameterGroup(), group);
}

TEST_F(SpecificationTest, IsToldByItsId) {
    Specification const tool("Tool", "Does");
    EXPECT_TRUE(tool == Specification("tOOL", "Other"));
    EXPECT_FALSE(tool == Specification("Tools", "Does"));
    EXPECT_STREQ(tool.getId(), "Tool");
    EXPECT_STREQ(tool.getDescription(), "Does");
}

TEST_F(SpecificationTest, StandsBelowAContainerOfItsOwn) {
    auto const* specification = createSpecification({.id = "tool"}, {createParameter({.id = "a"})});
    {
        SpecificationParameterGroup const above(*specification);
        EXPECT_EQ(walkLog(above), "<$SpecId$ <tool a >tool >$SpecId$");
        EXPECT_STREQ(above.getName(), "$SpecName$");
        EXPECT_STREQ(above.getDescription(), "$SpecDesc$");
        EXPECT_STREQ(above.getItemTypeName(), "Container");
        EXPECT_FALSE(above.isOptional() || above.isUnbounded() || above.itemsAreExclusive());
    }
    EXPECT_EQ(walkLog(*specification->getParameterGroup()), "<tool a >tool");
}

} // namespace
