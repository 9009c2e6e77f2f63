#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"
#include "visitors/ConstraintSplitterVisitor.h"
#include "visitors/FirstPhaseValidationVisitor.h"
#include "visitors/ParameterMatchingVisitor.h"
#include "visitors/ParameterValueAggregationVisitor.h"
#include "visitors/ParameterValueGroupDefaultProviderVisitor.h"
#include "visitors/ParameterValueGroupValidationVisitor.h"
#include "visitors/SecondPhaseValidationVisitor.h"
#include "visitors/UnboundedParameterValueFixer.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterErrors.h>

#include <sstream>

namespace kivo::test {

using namespace configuration;

namespace {

/// A schema, value trees joined by "+", and what a visitor makes of them: a tree, messages, or an exception.
struct Row {
    char const* label;
    char const* schema;
    char const* trees;
    char const* outcome;
};

/// Every row runs with a small schema and tree, which are walked, and with large ones, which are searched by index.
class VisitorTest : public ManagerTest, public testing::WithParamInterface<std::tuple<Row, Padding>> {
protected:
    VisitorTest() {
        std::istringstream texts(row.trees);
        for (std::string text; std::getline(texts, text, '+');) {
            trees.push_back(treeOf(text, padding));
        }
    }

    std::string messages() const { return errors.getNumberOfErrors() > 0 ? composeMessage(errors) : ""; }

    /// Shows a visitor the trees. @return what it throws
    std::string visit(auto&& visitor) {
        return whatOf<ConfigurationException>([&] {
            for (auto const& tree : trees) {
                tree->accept(visitor);
            }
        });
    }

    /// What comes before the visitor under test.
    void match() { visit(ParameterMatchingVisitor(*tool, ignored, false)); }
    void matchAndSplit() {
        match();
        visit(ConstraintSplitterVisitor(ignored));
    }

    Row const& row = std::get<0>(GetParam());
    Padding const& padding = std::get<1>(GetParam());
    Specification* tool = createTool(row.schema, padding);
    std::vector<std::unique_ptr<ParameterValueGroup>> trees;
    ParameterErrors errors;
    ParameterErrors ignored;
};

auto inBothSizes(std::vector<Row> const& rows) {
    return testing::Combine(testing::ValuesIn(rows), testing::Values(Padding{}, Padding{.schema = 40, .values = 12}));
}

struct Matching : VisitorTest {};
struct Aggregation : VisitorTest {};
struct Splitting : VisitorTest {};
struct Fixing : VisitorTest {};
struct Defaults : VisitorTest {};
struct FirstPhase : VisitorTest {};
struct SecondPhase : VisitorTest {};

// clang-format off
/// The tree, and after it a line for each message and for the exception.
TEST_P(Matching, BindsWhatFitsAndReportsTheRest) {
    auto const thrown = visit(ParameterMatchingVisitor(*tool, errors, true));
    EXPECT_EQ(toText(*trees[0]) + "\n" + messages() + (thrown == "<nothing>" ? "" : "\n" + thrown), row.outcome);
}

constexpr char const* MATCHED = "tool/Program{a/alpha u* con(c1 choice[c2]) in{b deep{d}}}";
#define CONSTRAINT(id) "\"" id "\" is a constraint. It cannot be declared explicitly"
#define OUTSIDE(id) "Unnamed group cannot contain Parameter \"" id "\""
#define UNKNOWN(id) "\"" id "\" is not a recognized parameter"

INSTANTIATE_TEST_SUITE_P(Visitors, Matching, inBothSizes({
    {"ByIdWhateverItsCase", MATCHED, "{TOOL{A=1 u=2,<none> IN{B=3}}}", "?{tool{a=1 u=2,<none> in{b=3}}}\n"},
    {"ValuesInTheWholeSubtree", MATCHED, "{tool{c1=1 c2=2 b=3 d=4}}", "?{tool{c1=1 c2=2 b=3 d=4}}\n"},
    {"GroupsAmongDirectItemsOnly", MATCHED, "{tool{deep{d=1}}}", "?{tool{deep?{d?=1}}}\n" OUTSIDE("d")},
    {"UnknownValuesNamesAndValuesOfAnEnclosingGroup", MATCHED, "{tool{alpha=1 %s%n=2 in{a=3}}}",
        "?{tool{alpha?=1 %s%n?=2 in{a?=3}}}\n" UNKNOWN("alpha") "\n" UNKNOWN("%s%n") "\n" UNKNOWN("a")},
    {"ValueInTheUnnamedGroup", MATCHED, "{a=1 tool{a=2}}", "?{a?=1 tool{a=2}}\n" OUTSIDE("a")},
    {"AnotherSpecificationHidesItsContent", MATCHED, "{other{a=1 x{}} tool{a=2}}", "?{other?{a?=1 x?{}} tool{a=2}}\n"
        "Unexpected unnamed group as parent of the \"other\" group. (Expected: tool)"},
    {"UnnamedOnesHideTheirContent", MATCHED, "{tool{{zzz=1} =1 u=1}}", "?{tool{?{zzz?=1} ?=1 u=1}}\n"
        "An unnamed value group was found\nAn unnamed value was found"},
    {"UnknownGroupReportsItsEntries", MATCHED, "{tool{nope{a=1 more{b=1} tool{u=2}} a=3}}",
        "?{tool{nope?{a?=1 more?{b?=1} tool{u=2}} a=3}}\n" OUTSIDE("a")
        "\nUnexpected unnamed group as parent of the \"more\" group. (Expected: tool)"},
    {"ConstraintIsReportedAndBound", MATCHED, "{tool{con{c1=1} CON{choice{c2=2}}}}",
        "?{tool{con{c1=1} con{choice{c2=2}}}}\n" CONSTRAINT("con") "\n" CONSTRAINT("CON") "\n" CONSTRAINT("choice")},
    {"TheWalkMayBeginElsewhere", MATCHED, "other{a=1 tool{a=2}}", "other?{a?=1 tool{a=2}}\n" OUTSIDE("a")},
    {"GroupForAParameter", MATCHED, "{tool{b=1 a{} u=2}}",
        "?{tool{b=1 a?{} u?=2}}\n\"a\" is not a parameter group\n\"alpha\" must be a parameter group"},
    {"ValueForTheGroupItself", MATCHED, "{tool{b=1 tool=2 u=3}}",
        "?{tool{b=1 tool?=2 u?=3}}\n\"tool\" is not a parameter\n\"Program\" must be a parameter"}}),
    SizedLabel());

/// The trees are aggregated into one, one after the other; then with constraints dissolved, where that differs.
TEST_P(Aggregation, MergesBoundItems) {
    matchAndSplit();
    decltype(trees) copies;
    for (auto const& tree : trees) {
        copies.emplace_back(tree->clone(ParameterValueItem::DEEP_COPY));
    }
    ParameterValueGroup merged(nullptr);
    visit(ParameterValueAggregationVisitor(tool, merged, errors, false));
    trees.swap(copies); // the values of the others have moved
    ParameterValueGroup flat(nullptr);
    visit(ParameterValueAggregationVisitor(tool, flat, errors, true));
    EXPECT_EQ(toText(merged) + (toText(flat) == toText(merged) ? "" : "\n" + toText(flat)) + messages(), row.outcome);
}

constexpr char const* MERGED = "tool{p u* f:bool?* n:int?*=8 in{q r} many*{m w*} con(c1 ex[x y])}";
INSTANTIATE_TEST_SUITE_P(Visitors, Aggregation, inBothSizes({
    {"Constraints", MERGED, "{tool{c1=1 x=2 p=3 in{q=4}}}+{tool{y=5 c1=6}}",
        "?{tool{p=3 in{q=4} con{c1=1 ex{x=2 y=5}}}}\n?{tool{p=3 in{q=4} c1=1 x=2 y=5}}"},
    {"TheFirstWinsAndUnboundedOnesCollect", MERGED, "{tool{p=1,0 u=a p=9}}+{tool{P=2 U=b,c}}+{tool{u=d u=e}}",
        "?{tool{p=1,0 u=a,b,c,d,e}}"},
    {"AbsentTexts", MERGED, "{tool{f=<none> u=<none>}}+{tool{f=<none>,0}}", "?{tool{f=1,1,0 u=<none>}}"},
    {"AnAbsentTextThatIsAppendedReadsAsTheDefault", MERGED, "{tool{n=<none>}}+{tool{n=<none>,9}}", "?{tool{n=<none>,8,9}}"},
    {"BoundedGroupsMerge", MERGED, "{tool{in{q=1} in{q=2 r=3}}}+{tool{in{r=4}}}", "?{tool{in{q=1 r=3}}}"},
    {"UnboundedGroupsStayApart", MERGED, "{tool{many{m=1 w=a} many{m=2}}}+{tool{many{m=3 w=b}}}",
        "?{tool{many{m=1 w=a} many{m=2} many{m=3 w=b}}}"},
    {"UnboundedRootGroup", "tool*{p}", "{tool{p=1} tool{p=2}}+{tool{p=3}}", "?{tool{p=1} tool{p=2} tool{p=3}}"},
    {"UnknownItemsAreLeftOut", MERGED, "{other{p=0} p=0 tool{zzz=1 p=1 nope{p=2 in{q=3}}}}", "?{tool{p=1}}"},
    {"TheRootGroupInAnUnknownOne", MERGED, "{tool{p=1 nope{tool{p=2}}}}", "?{tool{p=1 tool{p=2}}}"}}),
    SizedLabel());

TEST_P(Splitting, MovesValuesUnderTheirConstraints) {
    match();
    visit(ConstraintSplitterVisitor(errors));
    EXPECT_EQ(toText(*trees[0]) + messages(), row.outcome);
}

constexpr char const* SPLIT = "tool{direct con(c1 c2) ex[x deep(z)] in{b incon(i1)}}";

INSTANTIATE_TEST_SUITE_P(Visitors, Splitting, inBothSizes({
    {"DirectAndUnknownOnesStay", SPLIT, "{direct=0 tool{direct=1 zzz=2 nope{c1=3}}}",
        "?{direct?=0 tool{direct=1 zzz?=2 nope?{c1?=3}}}"},
    {"OneGroupForAConstraint", SPLIT, "{tool{c1=1 direct=2 C2=3,<none> c1=4}}",
        "?{tool{direct=2 con{c1=1 c2=3,<none> c1=4}}}"},
    {"GroupsInOrderOfFirstValues", SPLIT, "{tool{x=1 c2=2 in{b=3} c1=4}}", "?{tool{in{b=3} ex{x=1} con{c2=2 c1=4}}}"},
    {"NestedConstraints", SPLIT, "{tool{z=1 x=2}}", "?{tool{ex{deep{z=1} x=2}}}"},
    {"AboveAndInsideAContainer", SPLIT, "{tool{i1=1 in{i1=2 b=3}}}", "?{tool{i1=1 in{b=3 incon{i1=2}}}}"},
    {"BelowAContainerWithoutConstraints", "tool{con(c) in{q}}", "{tool{in{nope{tool{c=1}}}}}",
        "?{tool{in{nope?{tool{con{c=1}}}}}}"},

    // A parameter is searched by its name, and groups are found by the name of the constraint.
    {"DirectItemOfTheParametersName", "tool{direct con(id/DIRECT)}", "{tool{id=1}}", "?{tool{id=1}}"},
    {"FirstParameterOfTheName", "tool{con(n1/n) ex[n2/n N/N]}", "{tool{n2=1 N=2}}", "?{tool{con{n2=1} ex{N=2}}}"},
    {"ConstraintWhoseNameIsNotItsId", "tool{con/Name(a b)}", "{tool{a=1 b=2}}", "?{tool{con{a=1} con{b=2}}}"},
    {"ValueOfTheConstraintsName", "tool{p con/p(a b)}", "{tool{p=1 a=2}}", "?{tool{p=1 con{a=2}}}"},
    {"OwnValueOfTheConstraintsName", "tool{con/a(a b)}", "{tool{b=1 a=2}}", "?{tool{con{b=1} con{a=2}}}"}}),
    SizedLabel());

/// The copy, and the number of changes.
TEST_P(Fixing, MakesOneValueOfRepeatedElements) {
    UnboundedParameterValueFixer fixer(tool);
    auto const before = toText(*trees[0]);
    auto const thrown = visit(fixer);
    EXPECT_EQ(toText(*trees[0]), before);
    EXPECT_EQ(thrown == "<nothing>" ? toText(*fixer.getResult()) + " " + std::to_string(fixer.getChangeCount()) : thrown,
              row.outcome);
}

constexpr char const* FIXED = "tool{p* q in{r*} con(c*)}";

INSTANTIATE_TEST_SUITE_P(Visitors, Fixing, inBothSizes({
    {"NothingToFix", FIXED, "tool{q=1,2 p=<none> in{r=2} value=3}", "tool?{q?=1,2 p?=<none> in?{r?=2} value?=3} 0"},
    {"OtherContentIsDropped", FIXED, "tool{p{other=1 value=a,b child{value=c}}}", "tool?{p?=a} 1"},
    {"AnEmptyElementHasNoText", FIXED, "tool{p{value=<none>}}", "tool?{p?=<none>} 1"},
    {"InsideContainers", FIXED, "tool{in{r=0 r{value=1} R{VALUE=2}} in{}}", "tool?{in?{r?=0,1,2} in?{}} 2"},
    {"UnknownElementsAreTransparent", FIXED, "tool{zzz{p{value=a} r{value=b}}}", "tool?{zzz?{p?=a r?{value?=b}}} 1"},
    {"ConstraintsAreNotLookedInto", FIXED, "tool{c{value=a} con{c{value=b}}}", "tool?{c?{value?=a} con?{c?=b}} 1"},
    {"AnotherSpecification", FIXED, "other{p{value=a}}", "other?{p?{value?=a}} 0"},
    {"WithoutValue", FIXED, "tool{p{}}", "\"p\" is not a valid parameter"},
    {"GroupWhereAValueIsExpected", FIXED, "tool{p{value{}}}", "\"value\" is not a parameter value"}}),
    SizedLabel());

TEST_P(Defaults, FillWhatNobodyGave) {
    matchAndSplit();
    visit(ParameterValueGroupDefaultProviderVisitor(tool, errors));
    EXPECT_EQ(toText(*trees[0]) + messages(), row.outcome);
}

constexpr char const* FILLED = "tool?{a?=1 u?* in{b?=2} con/Name(c?=3 d)}";
constexpr char const* CHOICE = "tool?{ex[a b?=1 c?=2]}";

INSTANTIATE_TEST_SUITE_P(Visitors, Defaults, inBothSizes({
    {"NothingGivenForAnOptionalRoot", FILLED, "{}", "?{tool{a*=1 in{b*=2} con{c*=3}}}"},
    {"NothingGivenForARequiredRoot", "tool{a?=1 in{b?=2}}", "{}", "?{}"},
    {"TheRootIsNamedByItsName", "tool/Tool%s?{a?=1}", "{}", "?{tool{a*=1}}"},
    {"GivenValuesStay", FILLED, "{tool{A=9 in{b=<none>} c=8}}", "?{tool{a=9 in{b=<none>} con{c=8}}}"},
    {"EveryGroupGetsAValueGroup", "tool{in?{deep?*{}} con() ex?[]}", "{tool{}}", "?{tool{in{deep{}} con{} ex{}}}"},
    {"RequiredAndImplicitOnes", "tool{a=1 u*=2 f:bool? n:int?* d:double? w:uint?*}", "{tool{}}",
        "?{tool{a*=1 u*=2 f*=0 n*=0 d*=0}}"},
    {"OnlyTheFirstOccurrenceOfAContainer", "tool{many*{m?=1 n}}", "{tool{many{n=1} many{n=2}}}",
        "?{tool{many{n=1 m*=1} many{n=2}}}"},
    {"EveryOccurrenceOfTheRootGroup", "tool*{a?=1 b?=2}", "{tool{b=5} tool{a=6}}", "?{tool{b=5 a*=1} tool{a=6 b*=2}}"},
    {"ByIdNotByName", "tool{id/name?=1 name/other?=2}", "{tool{name=5}}", "?{tool{name=5 id*=1}}"},

    {"TheFirstAlternativeThatHasOne", CHOICE, "{tool{}}", "?{tool{ex{b*=1}}}"},
    {"NoneBesideAGivenAlternative", CHOICE, "{tool{a=5}}", "?{tool{ex{a=5}}}"},
    {"NoneInAnOptionalChoice", "tool?{ex?[a b?=1 c?=2]}", "{}", "?{tool{ex{}}}"},
    // The group that an alternative gets decides the choice before anything in it is looked at.
    {"NoneBelowAnAlternative", "tool{ex[con(a?=1) b?=2]}", "{tool{}}", "?{tool{ex{con{}}}}"},
    {"NoneFarBelowAChoice", "tool{ex?[in{con(a?=1)}] b?=2}", "{tool{}}", "?{tool{ex{in{con{}}} b*=2}}"}}),
    SizedLabel());

TEST_P(FirstPhase, ReportsUnknownAndRepeatedItems) {
    match();
    visit(FirstPhaseValidationVisitor(errors));
    EXPECT_EQ(messages(), row.outcome);
}

TEST_P(SecondPhase, ReportsWrongMissingAndExclusiveValues) {
    matchAndSplit();
    auto const thrown = visit(ParameterValueGroupValidationVisitor(tool, errors));
    EXPECT_EQ(thrown == "<nothing>" ? messages() : thrown, row.outcome);
}

constexpr char const* COUNTED = "tool{p/pname u* in{q} many*{m} con(c1)}";

#define REPEATED(id) "\"" id "\" cannot be provided more than once"
#define REQUIRED_FLAGS "A required flag was not specified. You must provide one of the following flags: "
#define REQUIRED_GROUP(name) "Required group \"" name "\" was not found"
#define EXCLUSIVE " flags are mutually exclusive, you cannot specify both."
#define WRONG_INT(name, text) name ": \"" text "\" is not a valid signed integer"

INSTANTIATE_TEST_SUITE_P(Visitors, FirstPhase, inBothSizes({
    {"SeveralTexts", COUNTED, "{tool{P=1,2 u=1,2 c1=<none>,<none>,<none> in{q=1}}}", REPEATED("p") "\n" REPEATED("c1")},
    {"ABoundedContainerOnceForEachOccurrence", COUNTED, "{tool{in{q=1,2} p=1 in{} IN{q=1}}}",
        REPEATED("in") "\n" REPEATED("q") "\n" REPEATED("in") "\n" REPEATED("in")},
    {"UnboundedContainersAndConstraintsMayRepeat", COUNTED, "{tool{many{m=1} con{c1=1} many{m=2} con{c1=2}}}", ""},
    {"TheRootGroup", COUNTED, "{tool{p=1} tool{p=2}}", REPEATED("tool") "\n" REPEATED("tool")},
    {"AGroupWithoutParent", COUNTED, "tool{p=1}", ""},
    {"UnknownOnes", COUNTED, "{tool{%s%n=1,2 nope{in{} in{p=1}}}}", UNKNOWN("%s%n") "\n" UNKNOWN("p")}}),
    SizedLabel());

INSTANTIATE_TEST_SUITE_P(Visitors, SecondPhase, inBothSizes({
    {"InSchemaOrder", "tool{n:int con(m:uint) in{d:double} b:bool}", "{tool{b=yes in{d=%s%n} m=-1 n=x}}",
        WRONG_INT("n", "x") "\nm: \"-1\" is not a valid unsigned integer\nd: \"%s%n\" is not a valid double\n"
        "b: \"yes\" is not a valid boolean"},
    {"EveryTextUpToAMissingOne", "tool{n:int* s f:bool?*}", "{tool{n=1,x,y,<none>,z s=<none> f=<none>,maybe}}",
        WRONG_INT("n", "x") "\n" WRONG_INT("n", "y") "\nMissing value for the \"n\" parameter\n"
        "Missing value for the \"s\" parameter\nf: \"maybe\" is not a valid boolean"},
    {"OnlyTheFirstOccurrenceOfAContainer", "tool{many*{n:int}}", "{tool{many{n=1} many{n=x}}}", ""},
    {"EveryOneOfTheRootGroup", "tool*{n:int}", "{tool{n=x} tool{n=y}}", WRONG_INT("n", "x") "\n" WRONG_INT("n", "y")},
    {"NothingGiven", "tool{n:int in{a}}", "{}", ""},

    {"RequiredOnesInSchemaOrder", "tool{a b/bee%s c con(d) f:bool?}", "{tool{c=1}}", REQUIRED_FLAGS "a, bee%s, d"},
    {"WhateverIsBelowARequiredGroup", "tool{in?{a deep?{b}}}", "{tool{}}", REQUIRED_FLAGS "a, b"},
    {"NothingInOptionalGroups", "tool?{a in?{b}}", "{tool{}}", ""},
    {"WhatIsMissingInAGivenGroup", "tool?{a in?{b c d?{e}} con(g h)}", "{tool{in{c=1} g=1}}", REQUIRED_FLAGS "a, b, h"},
    {"BelowARequiredContainer", "tool?{in/Inner{a deep?{b}} x?=1}", "{tool{}}",
        REQUIRED_GROUP("Inner") "\n" REQUIRED_FLAGS "a, b"},
    {"ContainersBelowAMissingOne", "tool?{out?{in{a?=1}}}", "{tool{}}", REQUIRED_GROUP("in")},
    {"ConstraintsAreNoGroupsToGive", "tool{ex[x?=1 y?=2] con(z?=3)}", "{tool{}}", ""},
    // Values are looked up by name here, though they are given by id.
    {"AValueGivenByIdIsNotFoundByName", "tool{id/name:int}", "{tool{id=x}}", REQUIRED_FLAGS "name"},
    {"AValueFoundByAnothersName", "tool{b:int a/b:uint}", "{tool{b=-1}}", "b: \"-1\" is not a valid unsigned integer"},
    {"AGroupFoundByTheName", "tool{a/in in?{b}}", "{tool{in{b=1}}}", "\"in\" is not a parameter value"},

    {"NamesAll", "tool{ex[x/eks?=1 %s?=1 z?=1]}", "{tool{z=1 x=2}}", "The \"eks\" and \"%s\" and \"z\"" EXCLUSIVE},
    {"OneOrNone", "tool{ex[x?=1 y?*=1] ey?[z?=1]}", "{tool{y=1,2}}", ""},
    {"ANestedGroupIsOneItem", "tool{ex[x?=1 con(y?=1 z?=1)] in{ey[p con2(q)]}}", "{tool{y=1 z=2 in{p=1 q=1}}}",
        "The \"p\" and \"con2\"" EXCLUSIVE},
    {"AmongTheOtherFaults", "tool{n:int ex[x?=1 y?=1] a in{b} m:int}", "{tool{m=k x=1 y=1 n=j}}",
        WRONG_INT("n", "j") "\nThe \"x\" and \"y\"" EXCLUSIVE "\n" REQUIRED_GROUP("in") "\n" WRONG_INT("m", "k") "\n"
        REQUIRED_FLAGS "a, b"}}),
    SizedLabel());

// clang-format on

class VisitorsTest : public ManagerTest {
protected:
    ParameterErrors errors;
};

TEST_F(VisitorsTest, WhatIsBoundStaysBoundAndBelongsToItsSpecification) {
    auto const* tool = createTool("tool{in{a}}");
    auto const* other = createTool("other{inner{b}}");
    auto const tree = treeOf("{tool{in{a=1}} other{inner{b=2}}}");
    for (auto const* specification : {tool, other, tool}) {
        ParameterMatchingVisitor matching(*specification, errors, false);
        tree->accept(matching);
    }
    ParameterValueGroup target(nullptr);
    ParameterValueAggregationVisitor visitor(other, target, errors, false);
    tree->accept(visitor);
    EXPECT_EQ(toText(target), "?{other{inner{b=2}}}");
    EXPECT_FALSE(visitor.isGroupInSpecification(tree.get()) || visitor.isGroupInSpecification(nullptr));

    Items items; // of the same id, which is already bound
    auto const bound = treeOf("other{b=1}", *items.group("g{b}"));
    ParameterMatchingVisitor matching(*other, errors, false);
    bound->accept(matching);
    EXPECT_NE(bound->getItem("b")->getParameterItem(), other->getParameterGroup()->getItem("b", true));
}

TEST_F(VisitorsTest, ManyValuesAreMovedInTheirOrder) {
    std::string parameters;
    std::string values;
    for (int i = 0; i < 2'000; ++i) {
        parameters += " p" + std::to_string(i);
        values += " p" + std::to_string(i) + "=x";
    }
    auto const* tool = createTool("tool{a con(" + parameters + ")}");
    auto const tree = treeOf("tool{" + values + " a=1}");
    ParameterMatchingVisitor matching(*tool, errors, true);
    ConstraintSplitterVisitor splitter(errors);
    EXPECT_TRUE(tree->accept(matching) && tree->accept(splitter));
    EXPECT_TRUE(toText(*tree) == "tool{a=1 con{" + values.substr(1) + "}}");
}

TEST_F(VisitorsTest, TheRequiredFlagsComeBeforeAnExclusiveRoot) {
    auto const* root = createItem("ex[a b]");
    auto const tree = treeOf("EX{c=1 d=1}");
    SecondPhaseValidationVisitor validation(*tree, errors);
    root->accept(validation);
    EXPECT_EQ(composeMessage(errors), REQUIRED_FLAGS "a, b\nThe \"a\" and \"b\"" EXCLUSIVE);
}

TEST_F(VisitorsTest, DefaultsAreNotCheckedAndValidatorsAre) {
    Items items;
    auto const* schema = items.group("tool{n:int v*!storageLocation}");
    auto const tree = treeOf("tool{n=x v=::a,good,b::}", *schema);
    tree->getValue("n")->setIsUsingDefaultValue(true);
    SecondPhaseValidationVisitor validation(*tree, errors);
    schema->accept(validation);
    EXPECT_EQ(composeMessage(errors), "Value is not properly formatted\nValue is not properly formatted\n");
    EXPECT_EQ(errors.getNumberOfErrors(), 1u);
}

TEST_F(VisitorsTest, RefuseWhatIsNotOfASpecification) {
    EXPECT_EQ(whatOf([&] { ParameterValueGroupValidationVisitor(nullptr, errors); }),
              contractText("specification != 0"));
    auto const unnamed = treeOf("{}");
    SecondPhaseValidationVisitor astray(*unnamed, errors);
    EXPECT_EQ(whatOf([&] { createItem("tool{}")->accept(astray); }), "\"tool\" specification was not found");
}

} // namespace

} // namespace kivo::test
