#include "visitors/ConstraintSplitterVisitor.h"

#include "visitors/VisitorTest.h"

namespace kivo::test {

using namespace configuration;

namespace {

class Splitting : public VisitorTest {};

TEST_P(Splitting, MovesValuesUnderTheirConstraints) {
    visit(ParameterMatchingVisitor(*tool, ignored, false));
    check(ConstraintSplitterVisitor(errors));
}

constexpr char const* SCHEMA = "tool{direct con(c1 c2) ex[x deep(z)] in{b incon(i1)}}";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Visitors, Splitting, inBothSizes({
    {"DirectAndUnknownOnesStay", SCHEMA, "{direct=0 tool{direct=1 zzz=2 nope{c1=3}}}",
        "?{direct?=0 tool{direct=1 zzz?=2 nope?{c1?=3}}}"},
    {"OneGroupForAConstraint", SCHEMA, "{tool{c1=1 direct=2 C2=3,<none>}}", "?{tool{direct=2 con{c1=1 c2=3,<none>}}}"},
    {"GroupsInTheOrderOfTheirFirstValues", SCHEMA, "{tool{x=1 c2=2 in{b=3} c1=4}}",
        "?{tool{in{b=3} ex{x=1} con{c2=2 c1=4}}}"},
    {"NestedConstraints", SCHEMA, "{tool{z=1 x=2}}", "?{tool{ex{deep{z=1} x=2}}}"},
    {"BehindAContainer", SCHEMA, "{tool{i1=1 b=2}}", "?{tool{i1=1 b=2}}"},
    {"InsideAContainer", SCHEMA, "{tool{in{i1=1 b=2}}}", "?{tool{in{b=2 incon{i1=1}}}}"},
    {"RepeatedValuesStayApart", SCHEMA, "{tool{c1=1 c1=2}}", "?{tool{con{c1=1 c1=2}}}"},

    // A parameter is searched by its name, and groups are found by the name of the constraint.
    {"DirectItemOfTheParametersName", "tool{direct con(id/DIRECT)}", "{tool{id=1}}", "?{tool{id=1}}"},
    {"FirstParameterOfTheName", "tool{con(n1/n) ex[n2/n N/N]}", "{tool{n2=1 N=2}}", "?{tool{con{n2=1} ex{N=2}}}"},
    {"ConstraintWhoseNameIsNotItsId", "tool{con/Name(a b)}", "{tool{a=1 b=2}}", "?{tool{con{a=1} con{b=2}}}"},
    {"ValueOfTheConstraintsName", "tool{p con/p(a b)}", "{tool{p=1 a=2}}", "?{tool{p=1 con{a=2}}}"},
    {"ValueOfTheConstraintsId", "tool{p p(a b)}", "{tool{p=1 a=2 b=3}}", "?{tool{p=1 p{a=2 b=3}}}"},
    {"OwnValueOfTheConstraintsName", "tool{con/a(a b)}", "{tool{b=1 a=2}}", "?{tool{con{b=1} con{a=2}}}"}}),
    SizedLabel());
// clang-format on

class ConstraintSplitterVisitorTest : public ManagerTest {};

TEST_F(ConstraintSplitterVisitorTest, MovesManyValuesInTheirOrder) {
    std::string parameters;
    std::string values;
    for (int i = 0; i < 5'000; ++i) {
        auto const id = "p" + std::to_string(i);
        parameters += id + " ";
        values += (i > 0 ? " " : "") + id + "=x";
    }
    auto const* tool = createTool("tool{a con(" + parameters + ")}");
    auto const tree = treeOf("tool{" + values + " a=1}");
    ParameterErrors errors;
    ParameterMatchingVisitor matching(*tool, errors, true);
    tree->accept(matching);
    ConstraintSplitterVisitor splitter(errors);
    tree->accept(splitter);
    EXPECT_TRUE(shown(*tree) == "tool{a=1 con{" + values + "}}");
}

} // namespace

} // namespace kivo::test
