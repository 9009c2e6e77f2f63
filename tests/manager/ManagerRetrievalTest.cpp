#include <configuration/ApplicationValuesProvider.h>
#include <configuration/ConfigurationException.h>
#include <configuration/ConfigurationParameterException.h>
#include <configuration/ContractViolationException.h>
#include <configuration/Flags.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterErrors.h>
#include <configuration/Specification.h>
#include <configuration/ValueGroupIterator.h>

#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/ValueTree.h"
#include "visitors/Notation.h"

namespace kivo::test {

using namespace configuration;

namespace {

/// Adds an enabled provider, not to be taken for that of the application.
void provide(char const* values, int priority = 1) {
    struct Source final : ApplicationValuesProvider {
        using ApplicationValuesProvider::ApplicationValuesProvider;
        char const* getName() const override { return "SOURCE"; }
    };
    auto provider = std::make_unique<Source>(priority);
    provider->enableProvider(*treeOf(values), 0);
    Manager::getInstance()->registerProvider(provider.release());
}

struct RetrievalCase {
    char const* label;
    char const* schema;
    std::vector<char const*> providers;
    char const* result;
    char const* thrown = "<nothing>";
    int flags = 0;
};

class Retrieval : public ManagerTest, public testing::WithParamInterface<RetrievalCase> {};

TEST_P(Retrieval, MergesChecksAndCompletes) {
    createTool(GetParam().schema);
    for (auto const* values : GetParam().providers) {
        provide(values);
    }
    ParameterValueGroup result(nullptr);
    EXPECT_EQ(whatOf([&] { manager().getValues("TOOL", result, GetParam().flags); }), GetParam().thrown);
    EXPECT_EQ(toText(result), GetParam().result);
}

#define REQUIRED_FLAGS "A required flag was not specified. You must provide one of the following flags: "

// clang-format off
INSTANTIATE_TEST_SUITE_P(Providers, Retrieval, testing::Values(
    RetrievalCase{"TheFirstWinsAndUnboundedOnesCollect", "tool{a b u* many*{m u2*} in{c d}}",
        {"{tool{a=1 u=x in{c=1} many{m=1 u2=x}}}", "{}", "{tool{b=2 a=2 u=y,z in{d=2 c=2} many{m=2}}}"},
        "?{tool{a=1 u=x,y,z in{c=1 d=2} many{m=1 u2=x} b=2 many{m=2}}}"},
    RetrievalCase{"ConstraintsDissolve", "tool{b con(c ex[x?=1 y?=2])}", {"{tool{c=3 y=4}}", "{tool{b=5 c=6}}"},
        "?{tool{c=3 y=4 b=5}}"},
    RetrievalCase{"AlternativesOfTwoProviders", "tool{ex[x?=1 y?=2]}", {"{tool{x=1}}", "{tool{y=2}}"}, "?{}",
        "The \"x\" and \"y\" flags are mutually exclusive, you cannot specify both."},
    RetrievalCase{"DefaultsComeLast", "tool{a:int?=7 b?=8 f:bool? ex[x?=1 y?=2]}", {"{tool{b=1}}", "{tool{y=3}}"},
        "?{tool{b=1 y=3 a*=7 f*=0}}"},
    RetrievalCase{"WhatOneLacksAnotherGives", "tool{a b in{c}}", {"{tool{a=1}}", "{tool{b=2 in{c=3}}}"},
        "?{tool{a=1 b=2 in{c=3}}}"},
    RetrievalCase{"UnknownOnesStrictly", "tool{a}", {"{tool{a=1}}", "{tool{zzz=1}}"}, "?{}",
        "\"zzz\" is not a recognized parameter", STRICT_RECOGNITION}),
    Label());

INSTANTIATE_TEST_SUITE_P(NothingGiven, Retrieval, testing::Values(
    RetrievalCase{"ToARequiredRoot", "tool{a b?=1}", {}, "?{}"},
    RetrievalCase{"ToARequiredRootByProviders", "tool{a b?=1}", {"{}", "{tool{}}"}, "?{}"},
    RetrievalCase{"ToAnOptionalRoot", "tool?{a b?=1 in{c?=2 d} ex[x?=3]}", {}, "?{tool{b*=1 in{c*=2} x*=3}}"},
    RetrievalCase{"ThatIsKnown", "tool{a b?=1}", {"{tool{zzz=1}}"}, "?{}"}),
    Label());

INSTANTIATE_TEST_SUITE_P(Faults, Retrieval, testing::Values(
    RetrievalCase{"OfTheMergedValuesTogether", "tool{a n:int in{b}}", {"{tool{n=x%s}}"}, "?{}",
        "n: \"x%s\" is not a valid signed integer\nRequired group \"in\" was not found\n" REQUIRED_FLAGS "a, b"},
    RetrievalCase{"OfOneProviderHideTheOthers", "tool{a n:int}", {"{tool{n=x}}", "{tool{a=1,2 n=1,2}}", "{a=1}"}, "?{}",
        "\"a\" cannot be provided more than once\n\"n\" cannot be provided more than once"}),
    Label());

constexpr char const* HELPFUL = "tool{must n:int help:bool? quiet:bool? u*}";
INSTANTIATE_TEST_SUITE_P(Help, Retrieval, testing::Values(
    RetrievalCase{"EndsTheLoop", HELPFUL, {"{tool{help=<none> quiet=1 u=x}}", "{a=1}"}, "?{tool{help=1 quiet=1}}"},
    RetrievalCase{"StandsBesideEarlierValues", HELPFUL, {"{tool{n=x u=y}}", "{tool{u=z help=1}}", "{a=1}"},
        "?{tool{tool{n=x u=y} help=1}}"},
    RetrievalCase{"DeclinedIsAValue", HELPFUL, {"{tool{help=0 must=1}}", "{tool{help=1 u=x}}", "{a=1}"},
        "?{tool{tool{help=0 must=1} help=1}}"}),
    Label());
// clang-format on

struct ValidationCase {
    char const* label;
    char const* schema;
    char const* values;
    char const* validated; ///< null: not looked at
    char const* thrown = "<nothing>";
    int flags = 0;
};

class Validation : public ManagerTest, public testing::WithParamInterface<ValidationCase> {};

TEST_P(Validation, ChecksAndCompletesTheCallersTree) {
    auto const* tool = createTool(GetParam().schema);
    provide("{tool{a=provided}}"); // not asked
    auto const values = treeOf(GetParam().values);
    EXPECT_EQ(whatOf([&] { manager().validateValues(tool, *values, GetParam().flags); }), GetParam().thrown);
    if (GetParam().validated) {
        EXPECT_EQ(toText(*values), GetParam().validated);
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Manager, Validation, testing::Values(
    ValidationCase{"Completes", "tool{a b?=1 con(c d?=2)}", "{tool{c=3 A=4}}", "?{tool{a=4 c=3 d*=2 b*=1}}"},
    ValidationCase{"FromTheRootGroup", "tool{a b?=1}", "tool{a=4}", "?{tool{a=4 b*=1}}"},
    ValidationCase{"NothingGiven", "tool{a b?=1}", "{}", "?{}"},
    ValidationCase{"NothingGivenToAnOptionalRoot", "tool?{a b?=1}", "{}", "?{tool{b*=1}}"},
    // Here nothing merges before the first phase.
    ValidationCase{"UnknownAndRepeatedItems", "tool{a in{b}}", "{tool{in{} zzz=1 in{b=1,2}}}", nullptr,
        "\"in\" cannot be provided more than once\n\"zzz\" is not a recognized parameter\n"
        "\"in\" cannot be provided more than once\n\"b\" cannot be provided more than once"},
    ValidationCase{"UnknownOnesStrictly", "tool{a}", "{tool{zzz=1,2 a=1,2}}", nullptr,
        "\"zzz\" is not a recognized parameter", STRICT_RECOGNITION},
    ValidationCase{"WrongAndMissingValues", "tool{a n:int}", "{tool{n=x}}", nullptr,
        "n: \"x\" is not a valid signed integer\n" REQUIRED_FLAGS "a"},
    ValidationCase{"Help", "tool{a help:bool?}", "tool{help=<none> zzz=1,2}", "tool{help=1 zzz?=1,2}"},
    ValidationCase{"HelpBelowTheGroupThatIsGiven", "tool{a help:bool?}", "{tool{help=1}}", nullptr, REQUIRED_FLAGS "a"}),
    Label());
// clang-format on

class ManagerRetrieval : public ManagerTest {
protected:
    static ParameterValueGroup const* groupOf(char const* name) {
        return manager().getValueGroup(name, true, 0).getCurrentValueGroup();
    }
};

TEST_F(ManagerRetrieval, AddsToAResultAndPassesDisabledProvidersOver) {
    auto const* tool = createTool("tool{a}");
    manager().registerProvider(std::make_unique<ApplicationValuesProvider>(0).release());
    manager().getProvider(0)->setArguments(*treeOf("{tool{a=disabled}}"), 0);
    provide("{tool{a=2}}");
    auto const result = treeOf("{other{}}");
    manager().getValues(tool, *result, 0);
    EXPECT_EQ(toText(*result), "?{other?{} tool{a=2}}");
}

TEST_F(ManagerRetrieval, ReportsEveryFaultHoweverLongTheMessageGrows) {
    std::string schema = "tool{";
    std::string values = "{tool{";
    std::string expected;
    for (int i = 0; i < 2'000; ++i) {
        auto const id = "p" + std::to_string(i);
        schema += id + ":int ";
        values += id + "=100% ";
        expected += (i > 0 ? "\n" : "") + id + ": \"100%\" is not a valid signed integer";
    }
    createTool(schema + "}");
    provide((values + "}}").c_str());
    ParameterValueGroup result(nullptr);
    try {
        manager().getValues("tool", result, 0);
        FAIL() << "no exception";
    } catch (ConfigurationParameterException const& thrown) {
        EXPECT_TRUE(thrown.what() == expected);
        EXPECT_EQ(thrown.getErrors().getNumberOfErrors(), 2'000u);
    }
}

TEST_F(ManagerRetrieval, KeepsTheSettingsOfASpecification) {
    createTool("tool{a:int u?* b?=1}");
    createTool("other?{c:bool?}");
    provide("{tool{a=7 u=x,y}}");
    auto const* kept = groupOf("tool");
    EXPECT_EQ(toText(*kept), "tool{a=7 u=x,y b*=1}");
    EXPECT_EQ(manager().getValueGroup("Tool", true, 0).getValue("A").asInteger(), 7);

    provide("{tool{a=1}}", -1);
    manager().loadConfigurationFile(installation.write("other.xml", "<tool a=\"2\"/>").c_str());
    manager().enableConfiguration(false, nullptr, 0, nullptr);
    EXPECT_EQ(groupOf("TOOL"), kept);
    EXPECT_EQ(manager().getNumberOfProviders(), 0u);
    EXPECT_TRUE(manager().getValueGroup("other", true, 0).getValue("c").isDefaultValue());

    manager().setApplicationValues(*treeOf("{tool{a=3}}"), 0);
    EXPECT_EQ(toText(*groupOf("tool")), "tool{a=3 b*=1}");
    manager().reset();
    createTool("tool?{d?=1}");
    EXPECT_EQ(toText(*groupOf("tool")), "tool{d*=1}");
}

TEST_F(ManagerRetrieval, KeepsNothingThatIsEmptyOrFailed) {
    createTool("tool{a}");
    auto const required = [] { return whatOf<ConfigurationException>([] { groupOf("Tool"); }); };
    EXPECT_TRUE(manager().getValueGroup("tool", false, 0).isNull());
    EXPECT_FALSE(manager().getValueGroupIterator("tool", 0).next());
    EXPECT_EQ(required(), "The \"Tool\" group was not found");
    provide("{tool{zzz=1}}");
    EXPECT_EQ(whatOf([] { manager().getValueGroup("tool", false, STRICT_RECOGNITION); }),
              "\"zzz\" is not a recognized parameter");
    EXPECT_EQ(required(), "The \"Tool\" group was not found");
    provide("{tool{a=1}}");
    EXPECT_EQ(toText(*groupOf("tool")), "tool{a=1}");

    EXPECT_EQ(whatOf<ConfigurationException>([] { groupOf("to%sol"); }), "Specification \"to%sol\" was not found");
    manager().registerSpecification(std::make_unique<Specification>("TOOL", "").release());
    EXPECT_EQ(required(), "Duplicate specification \"Tool\""); // though it is kept
}

TEST_F(ManagerRetrieval, IteratesOverARepeatedRootGroup) {
    createTool("tool*{a:int b?=1}");
    provide("{tool{a=1} tool{a=2}}");
    provide("{tool{a=3}}");
    auto iterator = manager().getValueGroupIterator("TOOL", 0);
    int sum = 0;
    int defaults = 0;
    while (iterator.next()) {
        sum = sum * 10 + iterator.getValue("a").asInteger();
        defaults += iterator.getValue("b").isDefaultValue() ? 1 : 0;
    }
    EXPECT_EQ(sum, 123);
    EXPECT_EQ(defaults, 3);
    EXPECT_EQ(manager().getValueGroup("tool", true, 0).getValue("a").asInteger(), 1);
}

TEST_F(ManagerRetrieval, TheApplicationsValuesWin) {
    createTool("tool{a u?*}");
    provide("{tool{a=1 u=x}}");
    auto const values = treeOf("{tool{a=2 u=y}}");
    manager().setApplicationValues(*values, 0);
    values->addValue("later", "1");
    EXPECT_EQ(toText(*groupOf("tool")), "tool{a=2 u=y,x}");

    auto* provider = manager().getProvider(0);
    EXPECT_EQ(provider->getName(), Manager::APPLICATION_PROVIDER_NAME);
    EXPECT_EQ(provider->getPriority(), 0);
    manager().setApplicationValues(*treeOf("{tool{u=z}}"), 0);
    EXPECT_EQ(manager().getProvider(0), provider);
    EXPECT_EQ(manager().getNumberOfProviders(), 2u);
    EXPECT_TRUE(provider->getEnabled());
    EXPECT_EQ(toText(*groupOf("tool")), "tool{u=z,x a=1}");
    manager().setApplicationValues(*treeOf("{}"), 0);
    EXPECT_EQ(toText(*groupOf("tool")), "tool{a=1 u=x}");
}

} // namespace

} // namespace kivo::test
