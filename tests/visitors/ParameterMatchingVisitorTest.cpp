#include "visitors/VisitorTest.h"

#include "support/Schema.h"
#include "support/ValueTree.h"

namespace kivo::test {

using namespace configuration;

namespace {

class Matching : public VisitorTest {};

TEST_P(Matching, BindsWhatFitsAndReportsTheRest) { check(ParameterMatchingVisitor(*tool, errors, true)); }

constexpr char const* SCHEMA = "tool/Program{a/alpha u* con(c1 choice[c2]) in{b deep{d}}}";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Visitors, Matching, inBothSizes({
    {"ByIdWhateverItsCase", SCHEMA, "{TOOL{A=1 u=2,<none> IN{B=3}}}", "?{tool{a=1 u=2,<none> in{b=3}}}"},
    {"ValuesInTheWholeSubtree", SCHEMA, "{tool{c1=1 c2=2 b=3 d=4}}", "?{tool{c1=1 c2=2 b=3 d=4}}"},
    {"GroupsAmongDirectItemsOnly", SCHEMA, "{tool{deep{d=1}}}", "?{tool{deep?{d?=1}}}",
        "Unnamed group cannot contain Parameter \"d\""},
    {"UnknownValuesAndNames", SCHEMA, "{tool{alpha=1 %s%n=2 in{zzz=3}}}", "?{tool{alpha?=1 %s%n?=2 in{zzz?=3}}}",
        "\"alpha\" is not a recognized parameter\n\"%s%n\" is not a recognized parameter\n"
        "\"zzz\" is not a recognized parameter"},
    {"ValuesOfAnEnclosingGroup", SCHEMA, "{tool{in{a=1}}}", "?{tool{in{a?=1}}}", "\"a\" is not a recognized parameter"},

    {"ValueInTheUnnamedGroup", SCHEMA, "{a=1 tool{a=2}}", "?{a?=1 tool{a=2}}",
        "Unnamed group cannot contain Parameter \"a\""},
    {"AnotherSpecificationHidesItsContent", SCHEMA, "{other{a=1 x{}} tool{a=2}}", "?{other?{a?=1 x?{}} tool{a=2}}",
        "Unexpected unnamed group as parent of the \"other\" group. (Expected: tool)"},
    {"UnnamedGroupHidesItsContent", SCHEMA, "{tool{{zzz=1} u=1}}", "?{tool{?{zzz?=1} u=1}}",
        "An unnamed value group was found"},
    {"UnnamedValue", SCHEMA, "{tool{=1 a=2}}", "?{tool{?=1 a=2}}", "An unnamed value was found"},
    {"UnknownGroupReportsItsEntries", SCHEMA, "{tool{nope{a=1 more{b=1} tool{u=2}} a=3}}",
        "?{tool{nope?{a?=1 more?{b?=1} tool{u=2}} a=3}}",
        "Unnamed group cannot contain Parameter \"a\"\n"
        "Unexpected unnamed group as parent of the \"more\" group. (Expected: tool)"},
    {"ConstraintIsReportedAndBound", SCHEMA, "{tool{con{c1=1} CON{choice{c2=2}}}}", "?{tool{con{c1=1} con{choice{c2=2}}}}",
        "\"con\" is a constraint. It cannot be declared explicitly\n"
        "\"CON\" is a constraint. It cannot be declared explicitly\n"
        "\"choice\" is a constraint. It cannot be declared explicitly"},

    {"TheWalkMayBeginAtTheRootGroup", SCHEMA, "tool{a=1}", "tool{a=1}"},
    {"TheWalkMayBeginElsewhere", SCHEMA, "other{a=1 tool{a=2}}", "other?{a?=1 tool{a=2}}",
        "Unnamed group cannot contain Parameter \"a\""},

    {"GroupForAParameter", SCHEMA, "{tool{b=1 a{} u=2}}", "?{tool{b=1 a?{} u?=2}}", "\"a\" is not a parameter group",
        "\"alpha\" must be a parameter group"},
    {"ValueForAGroup", SCHEMA, "{tool{b=1 in=2 u=2}}", "?{tool{b=1 in?=2 u?=2}}", "\"in\" is not a parameter",
        "\"in\" must be a parameter"},
    {"ValueForTheGroupItself", SCHEMA, "{tool{tool=1}}", "?{tool{tool?=1}}", "\"tool\" is not a parameter",
        "\"Program\" must be a parameter"}}),
    SizedLabel());
// clang-format on

class ParameterMatchingVisitorTest : public ManagerTest {};

TEST_F(ParameterMatchingVisitorTest, LeavesWhatIsBoundAsItIs) {
    auto const* tool = createTool("tool{a in{b}}");
    Items others;
    auto const* parameter = others.parameter({.id = "a"});
    auto const* group = others.group({.id = "a"});
    auto tree = valueGroup("tool", value(static_cast<Parameter const*>(parameter), "1"),
                           valueGroup(static_cast<ParameterGroup const*>(group), value("b", "2")), value("a", "3"));
    ParameterErrors errors;
    ParameterMatchingVisitor visitor(*tool, errors, true);
    tree->accept(visitor);
    EXPECT_EQ(tree->getItem(0ul)->getParameterItem(), parameter);
    EXPECT_EQ(tree->getItem(1ul)->getParameterItem(), group);
    EXPECT_EQ(tree->getItem(2ul)->getParameterItem(), tool->getParameterGroup()->getItem(0ul));
    EXPECT_EQ(composeMessage(errors), "\"a\" is not a parameter group\nUnnamed group cannot contain Parameter \"b\"");

    EXPECT_FALSE(visitor.setItem(*tree->getItem(0ul), group));
    ParameterValue unbound("b", "1");
    EXPECT_TRUE(visitor.setItem(unbound, parameter));
    EXPECT_EQ(unbound.getParameter(), parameter);
}

} // namespace

} // namespace kivo::test
