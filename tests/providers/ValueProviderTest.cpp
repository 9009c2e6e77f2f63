#include <configuration/ApplicationValuesProvider.h>
#include <configuration/CommandLineValueProvider.h>
#include <configuration/ConfigurationException.h>
#include <configuration/ConfigurationParameterException.h>
#include <configuration/ContractViolationException.h>
#include <configuration/Flags.h>

#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/ValueTree.h"
#include "support/VirtualSlot.h"
#include "visitors/Notation.h"

#include <functional>
#include <gmock/gmock.h>

namespace kivo::test {

using namespace configuration;

namespace {

struct PipelineCase {
    char const* label;
    char const* schema;
    char const* values;
    bool goesOn; ///< whether the manager asks the next provider
    char const* result;
    char const* thrown = "<nothing>";
    int flags = 0;
};

class Pipeline : public ManagerTest, public testing::WithParamInterface<PipelineCase> {};

TEST_P(Pipeline, MatchesChecksAndAggregatesACopy) {
    auto const* tool = createTool(GetParam().schema);
    ApplicationValuesProvider provider(0);
    provider.enableProvider(*treeOf(GetParam().values), 0);
    auto const before = toText(provider.getDataCache());
    for (int round = 0; round < 2; ++round) { // the second as the first: the provider's own tree does not change
        ParameterValueGroup result(nullptr);
        bool goesOn = GetParam().goesOn;
        EXPECT_EQ(whatOf([&] { goesOn = provider.getValues(tool, result, GetParam().flags); }), GetParam().thrown);
        EXPECT_EQ(goesOn, GetParam().goesOn);
        EXPECT_EQ(toText(result), GetParam().result);
        EXPECT_EQ(toText(provider.getDataCache()), before);
    }
}

constexpr char const* HELPFUL = "tool{must n:int help:bool? quiet:bool? notitle:bool? in?{help2}}";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Values, Pipeline, testing::Values(
    PipelineCase{"Nothing", "tool{a}", "{}", true, "?{}"},
    PipelineCase{"AnEmptyGroup", "tool{a}", "{tool{}}", true, "?{}"},
    PipelineCase{"ConstraintsAreSplit", "tool{a u* con(c)}", "{tool{c=1 u=x,y A=2}}", true, "?{tool{u=x,y a=2 con{c=1}}}"},
    // id and name of the constraint differ: two groups are split off, and merged again
    PipelineCase{"ConstraintsAreMerged", "tool{con/Name(c d)}", "{tool{c=1 d=2}}", true, "?{tool{con{c=1 d=2}}}"},
    // Merged before the first phase sees them.
    PipelineCase{"RepeatedContainersAndValues", "tool{a in{q r}}", "{tool{a=1 in{q=1} a=2 in{q=2 r=3}}}", true,
        "?{tool{a=1 in{q=1 r=3}}}"},
    PipelineCase{"UnknownOnesAreLeftOut", "tool{a}", "{tool{a=1 zzz=1,2 nope{}}}", true, "?{tool{a=1}}"},
    PipelineCase{"UnknownOnesAreFaults", "tool{a}", "{tool{a=1,2 zzz=1 yyy=2}}", true, "?{}",
        "\"zzz\" is not a recognized parameter\n\"yyy\" is not a recognized parameter", STRICT_RECOGNITION},
    PipelineCase{"AllFaultsOfThePhase", "tool{a b%s}", "{tool{a=1,2 b%s=3,4}}", true, "?{}",
        "\"a\" cannot be provided more than once\n\"b%s\" cannot be provided more than once"},
    PipelineCase{"AnotherSpecification", "tool{a}", "{other{a=1} tool{a=1}}", true, "?{}",
        "Unexpected unnamed group as parent of the \"other\" group. (Expected: tool)"}),
    Label());

INSTANTIATE_TEST_SUITE_P(Help, Pipeline, testing::Values(
    PipelineCase{"Alone", HELPFUL, "{tool{HELP=<none>}}", false, "?{help=1}"},
    PipelineCase{"WithItsManners", HELPFUL, "{tool{notitle=true n=x,y quiet=<none> help=1}}", false,
        "?{help=1 quiet=1 notitle=true}"},
    PipelineCase{"WithMannersDeclined", HELPFUL, "{tool{help=no quiet=false notitle=0}}", false, "?{help=no}"},
    PipelineCase{"TheFirstTextCounts", HELPFUL, "{tool{help=1,0 quiet=0,1}}", false, "?{help=1,0}"},
    PipelineCase{"Declined", HELPFUL, "{tool{help=FALSE quiet=1}}", true, "?{tool{help=FALSE quiet=1}}"},
    PipelineCase{"OnlyItsManners", HELPFUL, "{tool{quiet=1}}", true, "?{tool{quiet=1}}"},
    PipelineCase{"InAConstraint", "tool{con(help:bool?)}", "{tool{help=1}}", false, "?{help=1}"},
    PipelineCase{"InAContainer", "tool{in{help:bool?}}", "{tool{in{help=1}}}", true, "?{tool{in{help=1}}}"},
    PipelineCase{"WithoutTextOfARequiredFlag", "tool{help:bool}", "{tool{help=<none>}}", true, "?{tool{help=<none>}}"},
    PipelineCase{"UnknownToTheSpecification", "tool{a}", "{tool{help=1 a=2}}", true, "?{tool{a=2}}"},
    PipelineCase{"InOneOfSeveralRootGroups", "tool*{help:bool?}", "{tool{help=1} tool{}}", true, "?{tool{help=1} tool{}}"},
    PipelineCase{"AfterFaultsOfMatching", HELPFUL, "{tool{help=1 zzz=1}}", true, "?{}",
        "\"zzz\" is not a recognized parameter", STRICT_RECOGNITION},
    PipelineCase{"AfterFaultsOfMatchingAGroup", HELPFUL, "{tool{help=1} a=1}", true, "?{}",
        "Unnamed group cannot contain Parameter \"a\""}),
    Label());
// clang-format on

class ValueProviderTest : public ManagerTest {};

TEST_F(ValueProviderTest, AddsToWhatEarlierProvidersGaveAndKeepsThatWhenItFails) {
    auto const* tool = createTool("tool{a u* many*{m} con(c d)}");
    ApplicationValuesProvider provider(0);
    ParameterValueGroup result(nullptr);
    provider.setArguments(*treeOf("{tool{a=1 u=x many{m=1} c=3}}"), 0);
    EXPECT_TRUE(provider.getValues(tool, result, 0));
    provider.setArguments(*treeOf("{tool{d=4 a=2 u=y,z many{m=2} c=5}}"), 0);
    EXPECT_TRUE(provider.getValues(tool, result, 0));
    auto const merged = "?{tool{a=1 u=x,y,z many{m=1} con{c=3 d=4} many{m=2}}}";
    EXPECT_EQ(toText(result), merged);
    provider.setArguments(*treeOf("{tool{u=q a=1,2}}"), 0);
    EXPECT_EQ(whatOf<ConfigurationParameterException>([&] { provider.getValues(tool, result, 0); }),
              "\"a\" cannot be provided more than once");
    EXPECT_EQ(toText(result), merged);
    EXPECT_EQ(whatOf<ContractViolationException>([&] { provider.getValues(nullptr, result, 0); }),
              contractText("specification != 0"));
}

TEST_F(ValueProviderTest, IsEnabledUntilItIsReset) {
    auto const* tool = createTool("tool{a}");
    ApplicationValuesProvider provider(-7);
    EXPECT_EQ(provider.getPriority(), -7);
    EXPECT_FALSE(provider.getEnabled());
    auto const values = treeOf("{tool{a=1}}");
    provider.setArguments(*values, 0);
    EXPECT_FALSE(provider.getEnabled());
    provider.enableProvider(*values, 0);
    values->addValue("later", "1");
    EXPECT_TRUE(provider.getEnabled());
    EXPECT_EQ(toText(provider.getDataCache()), "?{tool?{a?=1}}");
    EXPECT_STREQ(provider.composeUsageMessage(tool), "    -a");

    provider.reset();
    EXPECT_FALSE(provider.getEnabled());
    EXPECT_EQ(toText(provider.getDataCache()), "?{}");
    EXPECT_EQ(provider.getPriority(), -7);
}

/// A provider of no kind of input.
struct Bare final : ValueProvider {
    Bare() : ValueProvider(1) {}
    char const* getName() const override { return "BARE"; }
};

TEST_F(ValueProviderTest, RefusesInputThatItDoesNotTakeAndStaysAsItWas) {
    auto const values = treeOf("{tool{a=1}}");
    Bare bare;
    ApplicationValuesProvider application(0);
    ApplicationValuesProvider enabled(0);
    enabled.enableProvider(*values, 0);
    CommandLineValueProvider commandLine(0);
    for (ValueProvider* provider : std::initializer_list<ValueProvider*>{&bare, &application, &enabled, &commandLine}) {
        SCOPED_TRACE(provider->getName());
        auto const refusal = [&](auto... arguments) {
            auto const before = toText(provider->getDataCache()) + std::to_string(provider->getEnabled());
            auto const what = whatOf<ConfigurationException>([&] { provider->enableProvider(arguments..., 0); });
            EXPECT_EQ(toText(provider->getDataCache()) + std::to_string(provider->getEnabled()), before);
            return what;
        };
        EXPECT_EQ(refusal("x"), "setArguments(const char*) is not supported");
        if (provider != &application && provider != &enabled) {
            EXPECT_EQ(refusal(std::ref(*values)), "setArguments(const ParameterValueGroup&) is not supported");
        }
        if (provider != &commandLine) {
            EXPECT_EQ(refusal(0, nullptr), "setArguments(int, const char*) is not supported");
        }
    }
}

TEST_F(ValueProviderTest, HasItsNameAndTheSlotsOfItsInterface) {
    EXPECT_EQ(ApplicationValuesProvider(0).getName(), Manager::APPLICATION_PROVIDER_NAME);
    EXPECT_EQ(CommandLineValueProvider(0).getName(), Manager::COMMAND_LINE_PROVIDER_NAME);
    using P = ValueProvider;
    EXPECT_THAT(slotsOf(&P::getName, &P::getValues, &P::composeHelpMessage, &P::composeUsageMessage, &P::reset,
                        static_cast<void (P::*)(ParameterValueGroup const&, int)>(&P::setArguments),
                        static_cast<void (P::*)(char const*, int)>(&P::setArguments),
                        static_cast<void (P::*)(int, char const* const*, int)>(&P::setArguments),
                        &CommandLineValueProvider::removeParameter),
                testing::ElementsAre(2, 3, 4, 5, 6, 7, 8, 9, 10));
}

} // namespace

} // namespace kivo::test
