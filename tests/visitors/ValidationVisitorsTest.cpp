#include "visitors/FirstPhaseValidationVisitor.h"
#include "visitors/ParameterValueGroupDefaultProviderVisitor.h"
#include "visitors/ParameterValueGroupValidationVisitor.h"
#include "visitors/SecondPhaseValidationVisitor.h"
#include "visitors/VisitorTest.h"

#include "support/Schema.h"

#include <configuration/Manager.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>

namespace kivo::test {

using namespace configuration;

namespace {

/// The visitors only read: the row's `out` is not looked at.
class FirstPhase : public VisitorTest {};
class SecondPhase : public VisitorTest {};

TEST_P(FirstPhase, ReportsUnknownAndRepeatedItems) {
    visit(ParameterMatchingVisitor(*tool, ignored, false));
    checkMessages(FirstPhaseValidationVisitor(errors));
}

TEST_P(SecondPhase, ReportsWrongMissingAndExclusiveValues) {
    matchAndSplit();
    checkMessages(ParameterValueGroupValidationVisitor(tool, errors));
}

constexpr char const* SCHEMA = "tool{p/pname u* in{q} many*{m} con(c1)}";

#define REQUIRED_FLAGS "A required flag was not specified. You must provide one of the following flags: "
#define EXCLUSIVE " flags are mutually exclusive, you cannot specify both."

// clang-format off
INSTANTIATE_TEST_SUITE_P(Visitors, FirstPhase, inBothSizes({
    {"SeveralTexts", SCHEMA, "{tool{P=1,2 u=1,2 c1=<none>,<none>,<none> in{q=1}}}", "",
        "\"p\" cannot be provided more than once\n\"c1\" cannot be provided more than once"},
    {"ABoundedContainerOnceForEachOccurrence", SCHEMA, "{tool{in{q=1,2} p=1 in{} IN{q=1}}}", "",
        "\"in\" cannot be provided more than once\n\"q\" cannot be provided more than once\n"
        "\"in\" cannot be provided more than once\n\"in\" cannot be provided more than once"},
    {"UnboundedContainersAndConstraintsMayRepeat", SCHEMA, "{tool{many{m=1} con{c1=1} many{m=2} con{c1=2}}}", ""},
    {"OccurrencesCountInOneParent", SCHEMA, "{tool{many{m=1}} nope{in{q=1} in{q=2}}}", "",
        "\"q\" is not a recognized parameter\n\"q\" is not a recognized parameter"},
    {"TheRootGroup", SCHEMA, "{tool{p=1} tool{p=2}}", "",
        "\"tool\" cannot be provided more than once\n\"tool\" cannot be provided more than once"},
    {"AGroupWithoutParent", SCHEMA, "tool{p=1}", ""},
    {"UnknownOnes", SCHEMA, "{tool{%s%n=1,2 nope{p=1}}}", "",
        "\"%s%n\" is not a recognized parameter\n\"p\" is not a recognized parameter"}}),
    SizedLabel());

INSTANTIATE_TEST_SUITE_P(Types, SecondPhase, inBothSizes({
    {"InSchemaOrder", "tool{n:int con(m:uint) in{d:double} b:bool}", "{tool{b=yes in{d=%s%n} m=-1 n=x}}", "",
        "n: \"x\" is not a valid signed integer\nm: \"-1\" is not a valid unsigned integer\n"
        "d: \"%s%n\" is not a valid double\nb: \"yes\" is not a valid boolean"},
    {"EveryTextUpToAMissingOne", "tool{n:int* s f:bool?*}", "{tool{n=1,x,y,<none>,z s=<none> f=<none>,maybe}}", "",
        "n: \"x\" is not a valid signed integer\nn: \"y\" is not a valid signed integer\n"
        "Missing value for the \"n\" parameter\nMissing value for the \"s\" parameter\n"
        "f: \"maybe\" is not a valid boolean"},
    {"OnlyTheFirstOccurrenceOfAContainer", "tool{many*{n:int}}", "{tool{many{n=1} many{n=x}}}", "", ""},
    {"EveryOccurrenceOfTheRootGroup", "tool*{n:int}", "{tool{n=x} tool{n=y}}", "",
        "n: \"x\" is not a valid signed integer\nn: \"y\" is not a valid signed integer"},
    {"NothingGiven", "tool{n:int in{a}}", "{}", "", ""}}),
    SizedLabel());

INSTANTIATE_TEST_SUITE_P(Required, SecondPhase, inBothSizes({
    {"InSchemaOrder", "tool{a b/bee%s c con(d) f:bool?}", "{tool{c=1}}", "", REQUIRED_FLAGS "a, bee%s, d"},
    {"WhateverIsBelowARequiredGroup", "tool{in?{a deep?{b}}}", "{tool{}}", "", REQUIRED_FLAGS "a, b"},
    {"NothingInOptionalGroups", "tool?{a in?{b}}", "{tool{}}", "", ""},
    {"WhatIsMissingInAGivenGroup", "tool?{a in?{b c d?{e}} con(g h)}", "{tool{in{c=1} g=1}}", "",
        REQUIRED_FLAGS "a, b, h"},
    {"BelowARequiredContainer", "tool?{in/Inner{a deep?{b}} x?=1}", "{tool{}}", "",
        "Required group \"Inner\" was not found\n" REQUIRED_FLAGS "a, b"},
    {"ContainersBelowAMissingOne", "tool?{out?{in{a?=1}}}", "{tool{}}", "", "Required group \"in\" was not found"},
    {"ConstraintsAreNoGroupsToGive", "tool{ex[x?=1 y?=2] con(z?=3)}", "{tool{}}", "", ""},
    // Values are looked up by name here, though they are given by id.
    {"AValueGivenByIdIsNotFoundByName", "tool{id/name:int}", "{tool{id=x}}", "", REQUIRED_FLAGS "name"},
    {"AValueFoundByTheNameOfAnother", "tool{b:int a/b:uint}", "{tool{b=-1}}", "",
        "b: \"-1\" is not a valid unsigned integer"},
    {"AGroupFoundByTheName", "tool{a/in in?{b}}", "{tool{in{b=1}}}", "", "", "\"in\" is not a parameter value"}}),
    SizedLabel());

INSTANTIATE_TEST_SUITE_P(Exclusive, SecondPhase, inBothSizes({
    {"NamesAllInItemOrder", "tool{ex[x/eks?=1 %s?=1 z?=1]}", "{tool{z=1 x=2}}", "",
        "The \"eks\" and \"%s\" and \"z\"" EXCLUSIVE},
    {"OneOrNone", "tool{ex[x?=1 y?*=1] ey?[z?=1]}", "{tool{y=1,2}}", "", ""},
    {"ANestedGroupIsOneItem", "tool{ex[x?=1 con(y?=1 z?=1)]}", "{tool{y=1 z=2}}", "", ""},
    {"ANestedGroupAndAnother", "tool{ex[x?=1 con(y?=1 z?=1)]}", "{tool{y=1 z=2 x=3}}", "",
        "The \"x\" and \"con\"" EXCLUSIVE},
    {"ContainersInAChoice", "tool{in{ex?[p?=1 q?=1]}}", "{tool{in{p=1 q=1}}}", "", "The \"p\" and \"q\"" EXCLUSIVE}}),
    SizedLabel());

INSTANTIATE_TEST_SUITE_P(Order, SecondPhase, inBothSizes({
    {"TypesThenGroupsThenRequiredFlags", "tool{n:int ex[x?=1 y?=1] a in{b} m:int}", "{tool{m=k x=1 y=1 n=j}}", "",
        "n: \"j\" is not a valid signed integer\nThe \"x\" and \"y\"" EXCLUSIVE "\nRequired group \"in\" was not found\n"
        "m: \"k\" is not a valid signed integer\n" REQUIRED_FLAGS "a, b"}}),
    SizedLabel());
// clang-format on

class ValidationVisitors : public ManagerTest {};

TEST_F(ValidationVisitors, TheRequiredFlagsComeBeforeAnExclusiveRoot) {
    ParameterErrors errors;
    Items items;
    auto const* root = items.group({.id = "ex", .exclusive = true, .type = ParameterGroup::CONSTRAINT},
                                   {items.parameter({.id = "a"}), items.parameter({.id = "b"})});
    auto const tree = treeOf("EX{c=1 d=1}");
    SecondPhaseValidationVisitor visitor(*tree, errors);
    root->accept(visitor);
    EXPECT_EQ(composeMessage(errors), REQUIRED_FLAGS "a, b\nThe \"a\" and \"b\"" EXCLUSIVE);

    auto const other = treeOf("other{}");
    SecondPhaseValidationVisitor astray(*other, errors);
    EXPECT_EQ(whatOf<ConfigurationException>([&] { root->accept(astray); }), "\"ex\" specification was not found");
    auto const what = [](auto call) { return whatOf<ContractViolationException>(call); };
    EXPECT_EQ(what([&] { ParameterValueGroupValidationVisitor(nullptr, errors); }), contractText("specification != 0"));
    EXPECT_EQ(what([&] { ParameterValueGroupDefaultProviderVisitor(nullptr, errors); }),
              contractText("specification != 0"));
}

TEST_F(ValidationVisitors, DefaultsAreNotCheckedAndValidatorsAre) {
    manager().addValidator(std::make_unique<RejectingValidator>("check").release());
    auto* n = createParameter({.id = "n", .type = Parameter::INT_PARAMETER});
    auto* v = createParameter({.id = "v", .unbounded = true, .validator = "check"});
    auto const* tool = createSpecification({.id = "tool"}, {n, v});
    auto const tree = treeOf("{tool{n=x v=bad%d,good,bad}}");
    ParameterErrors errors;
    ParameterMatchingVisitor matching(*tool, errors, true);
    tree->accept(matching);
    auto const& group = *static_cast<ParameterValueGroup*>(tree->getItem("tool"));
    group.getValue("n")->setIsUsingDefaultValue(true);
    ParameterValueGroupValidationVisitor validation(tool, errors);
    tree->accept(validation);
    EXPECT_EQ(composeMessage(errors), "bad%d was rejected\nbad was rejected\n");
    EXPECT_EQ(errors.getNumberOfErrors(), 1u);
}

} // namespace

} // namespace kivo::test
