#include "visitors/UnboundedParameterValueFixer.h"

#include "visitors/VisitorTest.h"

namespace kivo::test {

using namespace configuration;

namespace {

/// The row's `out` is the copy, with the number of changes.
class Fixing : public VisitorTest {};

TEST_P(Fixing, MakesOneValueOfRepeatedElements) {
    UnboundedParameterValueFixer fixer(tool);
    auto const before = shown(*values);
    EXPECT_EQ(visit(fixer), row().thrown);
    EXPECT_EQ(shown(*values), before);
    if (row().out) {
        EXPECT_EQ(shown(*fixer.getResult()) + " " + std::to_string(fixer.getChangeCount()), row().out);
    }
}

constexpr char const* SCHEMA = "tool{p* q in{r*} con(c*)}";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Visitors, Fixing, inBothSizes({
    {"RepeatedElements", SCHEMA, "tool{p{value=a} q=1 P{VALUE=b}}", "tool?{p?=a,b q?=1} 2"},
    {"NothingToFix", SCHEMA, "tool{q=1,2 p=<none> in{r=2} value=3}", "tool?{q?=1,2 p?=<none> in?{r?=2} value?=3} 0"},
    {"AnAttributeComesFirst", SCHEMA, "tool{p=x p{value=a}}", "tool?{p?=x,a} 1"},
    {"OtherContentIsDropped", SCHEMA, "tool{p{other=1 value=a,b child{value=c}}}", "tool?{p?=a} 1"},
    {"AnEmptyElementHasNoText", SCHEMA, "tool{p{value=<none>}}", "tool?{p?=<none>} 1"},
    {"InsideContainers", SCHEMA, "tool{in{r{value=1} r{value=2}} in{}}", "tool?{in?{r?=1,2} in?{}} 2"},
    {"UnknownElementsAreTransparent", SCHEMA, "tool{zzz{p{value=a} r{value=b}}}",
        "tool?{zzz?{p?=a r?{value?=b}}} 1"},
    {"ConstraintsAreNotLookedInto", SCHEMA, "tool{c{value=a} con{c{value=b}}}", "tool?{c?{value?=a} con?{c?=b}} 1"},
    {"AnotherSpecification", SCHEMA, "other{p{value=a}}", "other?{p?{value?=a}} 0"},
    {"WithoutValue", SCHEMA, "tool{p{}}", nullptr, "", "\"p\" is not a valid parameter"},
    {"GroupWhereAValueIsExpected", SCHEMA, "tool{p{value{}}}", nullptr, "", "\"value\" is not a parameter value"}}),
    SizedLabel());
// clang-format on

class UnboundedParameterValueFixerTest : public ManagerTest {};

TEST_F(UnboundedParameterValueFixerTest, NeedsASpecificationAndANamedTree) {
    EXPECT_EQ(whatOf<ContractViolationException>([] { UnboundedParameterValueFixer(nullptr); }),
              contractText("spec != 0"));
    UnboundedParameterValueFixer fixer(createTool("tool{p*}"));
    auto const unnamed = treeOf("{tool{p=1}}");
    EXPECT_EQ(whatOf<ContractViolationException>([&] { unnamed->accept(fixer); }), contractText("id != 0"));
    EXPECT_EQ(fixer.getResult(), nullptr);
}

} // namespace

} // namespace kivo::test
