#include "visitors/ParameterValueAggregationVisitor.h"

#include "visitors/VisitorTest.h"

#include <sstream>

namespace kivo::test {

using namespace configuration;

namespace {

/// The row's trees are joined by "+". They are matched, split, and aggregated into one target, one after the other:
/// `out` is what comes of it, `messages` with constraints dissolved, where that differs.
class Aggregation : public VisitorTest {
protected:
    std::string aggregate(bool flattenConstraints) {
        ParameterValueGroup target(nullptr);
        ParameterValueAggregationVisitor visitor(tool, target, errors, flattenConstraints);
        std::istringstream trees(row().in);
        for (std::string tree; std::getline(trees, tree, '+');) {
            values = treeOf(tree, padding());
            matchAndSplit();
            EXPECT_EQ(visit(visitor), "<nothing>");
        }
        return shown(target);
    }
};

TEST_P(Aggregation, MergesBoundItems) {
    EXPECT_EQ(aggregate(false), row().out);
    EXPECT_EQ(aggregate(true), *row().messages ? row().messages : row().out);
    EXPECT_EQ(errors.getNumberOfErrors(), 0u);
}

constexpr char const* SCHEMA = "tool{p u* f:bool?* in{q r} many*{m w*} con(c1 ex[x y])}";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Visitors, Aggregation, inBothSizes({
    {"TheFirstWinsAndUnboundedOnesCollect", SCHEMA, "{tool{p=1,0 u=a}}+{tool{P=2 U=b,c}}+{tool{p=3 u=d}}",
        "?{tool{p=1,0 u=a,b,c,d}}"},
    {"RepeatedInOneTree", SCHEMA, "{tool{p=1 u=a p=2 u=b}}", "?{tool{p=1 u=a,b}}"},
    {"AbsentTexts", SCHEMA, "{tool{f=<none> u=<none>}}+{tool{f=<none>,0 u=<none>}}", "?{tool{f=1,1,0 u=<none>,<none>}}"},
    {"BoundedGroupsMerge", SCHEMA, "{tool{in{q=1} in{q=2 r=3}}}+{tool{in{r=4}}}", "?{tool{in{q=1 r=3}}}"},
    {"UnboundedGroupsStayApart", SCHEMA, "{tool{many{m=1 w=a} many{m=2}}}+{tool{many{m=3 w=b}}}",
        "?{tool{many{m=1 w=a} many{m=2} many{m=3 w=b}}}"},
    {"UnboundedRootGroup", "tool*{p}", "{tool{p=1} tool{p=2}}+{tool{p=3}}", "?{tool{p=1} tool{p=2} tool{p=3}}"},
    {"UnknownItemsAreLeftOut", SCHEMA, "{other{p=0} p=0 tool{zzz=1 p=1 nope{p=2 in{q=3}}}}", "?{tool{p=1}}"},
    {"TheRootGroupInAnUnknownOne", SCHEMA, "{tool{p=1 nope{tool{p=2}}}}", "?{tool{p=1 tool{p=2}}}"},
    {"NothingGiven", SCHEMA, "{}+{tool{}}", "?{tool{}}"},
    {"Constraints", SCHEMA, "{tool{c1=1 x=2 p=3 in{q=4}}}+{tool{y=5 c1=6}}",
        "?{tool{p=3 in{q=4} con{c1=1 ex{x=2 y=5}}}}", "?{tool{p=3 in{q=4} c1=1 x=2 y=5}}"}}),
    SizedLabel());
// clang-format on

class ParameterValueAggregationVisitorTest : public ManagerTest {};

TEST_F(ParameterValueAggregationVisitorTest, LeavesOutWhatIsBoundToAnotherSpecification) {
    auto const* tool = createTool("tool{in{a}}");
    auto const* other = createTool("other{b inner{c}}");
    auto const tree = treeOf("{tool{in{a=1}} other{b=1 inner{c=2}}}");
    for (auto const* specification : {tool, other}) {
        ParameterErrors errors;
        ParameterMatchingVisitor matching(*specification, errors, false);
        tree->accept(matching);
    }
    ParameterErrors errors;
    ParameterValueGroup target(nullptr);
    ParameterValueAggregationVisitor visitor(tool, target, errors, false);
    tree->accept(visitor);
    EXPECT_EQ(shown(target), "?{tool{in{a=1}}}");

    auto const* root = static_cast<ParameterValueGroup*>(tree->getItem("tool"));
    EXPECT_TRUE(visitor.isGroupInSpecification(static_cast<ParameterValueGroup*>(root->getItem("in"))));
    EXPECT_FALSE(visitor.isGroupInSpecification(static_cast<ParameterValueGroup*>(tree->getItem("other"))));
    EXPECT_FALSE(visitor.isGroupInSpecification(tree.get()));
    EXPECT_FALSE(visitor.isGroupInSpecification(nullptr));
    EXPECT_EQ(
        whatOf<ContractViolationException>([&] { ParameterValueAggregationVisitor(nullptr, target, errors, false); }),
        contractText("specification != 0"));
}

} // namespace

} // namespace kivo::test
