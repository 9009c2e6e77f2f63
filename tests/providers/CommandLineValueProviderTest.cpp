#include <configuration/CommandLineValueProvider.h>
#include <configuration/ConfigurationException.h>
#include <configuration/ContractViolationException.h>
#include <configuration/Flags.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/Specification.h>

#include "providers/NameFixer.h"
#include "providers/ParameterSearchVisitor.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/ValueTree.h"
#include "visitors/Notation.h"

#include <string>
#include <vector>

namespace kivo::test {

using namespace configuration;

namespace {

using Arguments = std::vector<char const*>;

/// Sets arguments behind a program's name.
void setArguments(CommandLineValueProvider& provider, Arguments arguments, int flags = 0) {
    arguments.insert(arguments.begin(), "prog");
    provider.setArguments(static_cast<int>(arguments.size()), arguments.data(), flags);
}

/// What a provider has parsed.
std::string parsed(CommandLineValueProvider& provider) {
    Manager::getInstance()->reset();
    ParameterValueGroup result(nullptr);
    provider.getValues(createTool("t{}"), result, 0);
    return toText(provider.getDataCache());
}

struct SyntaxCase {
    char const* label;
    Arguments arguments;
    std::string parsed;
};

class CommandLineSyntax : public ManagerTest, public testing::WithParamInterface<SyntaxCase> {};

TEST_P(CommandLineSyntax, TakesArgumentsApart) {
    CommandLineValueProvider provider(1);
    setArguments(provider, GetParam().arguments);
    EXPECT_EQ(parsed(provider), "?{t?{" + GetParam().parsed + "}}");
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(CommandLineValueProvider, CommandLineSyntax, testing::Values(
    SyntaxCase{"Nothing", {}, ""},
    SyntaxCase{"FlagsWithAndWithoutValue", {"-port", "80", "-verbose"}, "port?=80 verbose?=<none>"},
    SyntaxCase{"AValueBeginsWithNoDash", {"-level", "-5", " \t-6"}, "level?=<none> 5?=<none> 6?=<none>"},
    SyntaxCase{"ABlankValueIsNone", {"-name", " \n ", "-a", "", "-b", "c"}, "name?=<none> a?=<none> b?=c"},
    SyntaxCase{"RepeatedFlags", {"-Tag", "a", "-x", "-tag", "-TAG", "b"}, "Tag?=a,<none>,b x?=<none>"},
    SyntaxCase{"TwoDashes", {"--port", "1", "---"}, "-port?=1 --?=<none>"},
    SyntaxCase{"Words", {"word", "-a", "b", "c", "word"}, "word?=<none>,<none> a?=b c?=<none>"},
    SyntaxCase{"NoEqualsSign", {"-a=b", "c"}, "a=b?=c"},
    SyntaxCase{"OuterWhiteSpace", {"\r\n-a b\v", "\f c d\t", "- e"}, "a b?=c d  e?=<none>"},
    SyntaxCase{"NullArguments", {"-a", nullptr, "-b"}, "a?=<none> b?=<none>"},
    SyntaxCase{"BytesOfAnyKind", {"-\xff\x80", "\xc3(", "-a\nb", "\x01\nc"}, "\xff\x80?=\xc3( a\nb?=\x01\nc"},
    SyntaxCase{"PercentSigns", {"-%s%n", "%n%n", "%d"}, "%s%n?=%n%n %d?=<none>"}),
    Label());

struct FaultCase {
    char const* label;
    Arguments arguments;
    int flags;
    std::string thrown;
};

class CommandLineFaults : public ManagerTest, public testing::WithParamInterface<FaultCase> {};

TEST_P(CommandLineFaults, KeepTheEarlierArguments) {
    CommandLineValueProvider provider(1);
    setArguments(provider, {"-kept", "1"});
    auto arguments = GetParam().arguments;
    arguments.insert(arguments.begin(), "-lost");
    EXPECT_EQ(whatOf([&] { setArguments(provider, arguments, GetParam().flags); }), GetParam().thrown);
    EXPECT_EQ(parsed(provider), "?{t?{kept?=1}}");
}

constexpr char const* EMPTY = "A command line parameter cannot be empty";
auto const noName = contractText("parameterItemId != 0 && *parameterItemId != '\\0'");

INSTANTIATE_TEST_SUITE_P(CommandLineValueProvider, CommandLineFaults, testing::Values(
    FaultCase{"ADash", {"-"}, 0, EMPTY},
    FaultCase{"ADashAndBlanks", {"-a", " -  "}, STRICT_RECOGNITION, EMPTY},
    FaultCase{"AnEmptyWord", {"value", ""}, 0, noName},
    FaultCase{"ABlankWord", {"value", " \t"}, RESOLVE_FLAG_NAMES, noName},
    FaultCase{"AnEmptyWordStrictly", {"value", " "}, STRICT_RECOGNITION, "The \"\" command line argument is not recognized"},
    FaultCase{"AWordStrictly", {"-a", "b", " c%s d "}, STRICT_RECOGNITION | RESOLVE_FLAG_NAMES,
        "The \"c%s d\" command line argument is not recognized"}),
    Label());

struct FlagCase {
    char const* label;
    char const* schema;
    Arguments arguments;
    char const* result;
    char const* thrown = "<nothing>";
    int flags = RESOLVE_FLAG_NAMES;
};

/// Small specifications are walked, large ones searched by index.
class FlagNames : public ManagerTest, public testing::WithParamInterface<std::tuple<FlagCase, Padding>> {};

TEST_P(FlagNames, AreResolvedToParameters) {
    auto const& [row, padding] = GetParam();
    CommandLineValueProvider provider(1);
    setArguments(provider, row.arguments);
    ParameterValueGroup result(nullptr);
    auto const* tool = createTool(row.schema, padding);
    EXPECT_EQ(whatOf([&, &c = row] { provider.getValues(tool, result, c.flags); }), row.thrown);
    EXPECT_EQ(toText(result), row.result);
    EXPECT_EQ(provider.removeParameter(tool, row.arguments[0] + 1), true); // as it was typed
}

#define AMBIGUOUS(flag, names) \
    "The flag \"" flag "\" is ambiguous, matching the following allowed flags: " names ". Please be more specific."

INSTANTIATE_TEST_SUITE_P(CommandLineValueProvider, FlagNames, testing::Combine(testing::Values(
    FlagCase{"ABeginning", "tool{verbose:bool? version}", {"-VERB"}, "?{tool{verbose=1}}"},
    FlagCase{"TheIdOfAName", "tool{p1/port in{p2/target}}", {"-po", "80", "-t", "x"}, "?{tool{p1=80 p2=x}}"},
    FlagCase{"NotTheBeginningOfAnId", "tool{p1/port}", {"-p1", "80"}, "?{tool{p1=80}}"},
    FlagCase{"InNestedGroupsInSchemaOrder", "tool{b in{a2 ex[a1/A1]} a3}", {"-a", "x"}, "?{}", AMBIGUOUS("a", "a2, A1, a3")},
    FlagCase{"AFullNameDoesNotWin", "tool{port portRange}", {"-Port"}, "?{}", AMBIGUOUS("Port", "port, portRange")},
    FlagCase{"PercentSigns", "tool{%s1 %s%n}", {"-%s"}, "?{}", AMBIGUOUS("%s", "%s1, %s%n")},
    FlagCase{"HiddenOnesAreNotFound", "tool{secret~ secs}", {"-sec", "1"}, "?{tool{secs=1}}"},
    FlagCase{"HiddenOnesByTheirWholeId", "tool{secret~ secs}", {"-SECRET", "1", "-secr", "2"}, "?{tool{secret=1}}"},
    FlagCase{"AVisibleNameBeatsAHiddenId", "tool{s~ secs}", {"-s", "1"}, "?{tool{secs=1}}"},
    FlagCase{"TheSameParameterMerges", "tool{verbose* x}", {"-verb", "a", "-x", "1", "-verbose", "-VERBO", "b"},
        "?{tool{verbose=a,<none>,b x=1}}"},
    FlagCase{"TheSameBoundedParameter", "tool{verbose}", {"-verb", "a", "-verbose", "b"}, "?{}",
        "\"verbose\" cannot be provided more than once"},
    FlagCase{"UnknownOnesMergeToo", "tool{x}", {"-nope", "1", "-NOPE", "2", "-x", "3"}, "?{tool{x=3}}"},
    FlagCase{"UnknownOnesStrictly", "tool{x}", {"-nope%d", "1", "y"}, "?{}",
        "\"nope%d\" is not a recognized parameter\n\"y\" is not a recognized parameter",
        RESOLVE_FLAG_NAMES | STRICT_RECOGNITION},
    FlagCase{"WithoutResolution", "tool{verbose v~}", {"-verb", "1", "-V", "2"}, "?{tool{v=2}}", "<nothing>", 0},
    FlagCase{"HelpByItsBeginning", "tool{help:bool? a}", {"-he", "-zzz"}, "?{help=1}"}),
    testing::Values(Padding{}, Padding{.schema = 40})),
    SizedLabel());
// clang-format on

class CommandLineValueProviderTest : public ManagerTest {
protected:
    CommandLineValueProvider provider{1};
};

TEST_F(CommandLineValueProviderTest, ServesEverySpecificationWithTheSameArguments) {
    setArguments(provider, {"-ab", "1", "-help"});
    auto const* first = createTool("one{abc}");
    auto const* second = createTool("two{abd ab help:bool?}");
    ParameterValueGroup ofFirst(nullptr);
    EXPECT_TRUE(provider.getValues(first, ofFirst, RESOLVE_FLAG_NAMES));
    EXPECT_EQ(toText(ofFirst), "?{one{abc=1}}");
    ParameterValueGroup ofSecond(nullptr);
    EXPECT_FALSE(provider.getValues(second, ofSecond, 0));
    EXPECT_EQ(toText(ofSecond), "?{help=1}");
    EXPECT_EQ(whatOf<ContractViolationException>([&] { provider.getValues(nullptr, ofFirst, 0); }),
              contractText("specification != 0"));
}

TEST_F(CommandLineValueProviderTest, ForgetsArguments) {
    auto const* tool = createTool("tool{}");
    setArguments(provider, {"-a", "-b", "1", "-c"});
    EXPECT_EQ(whatOf<ContractViolationException>([&] { provider.removeParameter(nullptr, nullptr); }),
              contractText("specification != 0"));
    for (char const* nothing : {static_cast<char const*>(nullptr), ""}) {
        EXPECT_EQ(whatOf<ContractViolationException>([&] { provider.removeParameter(tool, nothing); }),
                  contractText("parameterName != 0 && *parameterName != '\\0'"));
    }
    EXPECT_FALSE(provider.removeParameter(tool, "-b"));
    EXPECT_TRUE(provider.removeParameter(tool, "B"));
    EXPECT_FALSE(provider.removeParameter(tool, "b"));
    EXPECT_EQ(parsed(provider), "?{t?{a?=<none> c?=<none>}}");

    char const* arguments[] = {"prog", "-a"};
    provider.enableProvider(2, arguments, 0);
    EXPECT_EQ(parsed(provider), "?{t?{a?=<none>}}");
    provider.reset();
    EXPECT_FALSE(provider.getEnabled());
    EXPECT_EQ(toText(provider.getDataCache()), "?{}");
    EXPECT_EQ(parsed(provider), "?{t?{}}");
    provider.setArguments(-1, nullptr, 0);
    provider.setArguments(1, arguments, 0);
    EXPECT_EQ(parsed(provider), "?{t?{}}");
}

/// In time that grows with their number, or the test runs for minutes.
TEST_F(CommandLineValueProviderTest, TakesVeryManyArguments) {
    auto const* tool = createTool("tool{many* a}");
    auto const numberOfTexts = [&](Arguments const& arguments) {
        setArguments(provider, arguments);
        ParameterValueGroup result(nullptr);
        provider.getValues(tool, result, RESOLVE_FLAG_NAMES);
        auto const* group = static_cast<ParameterValueGroup*>(result.getItem("tool"));
        return group ? group->getValue("many")->getNumberOfValues() : 0;
    };
    std::vector<std::string> flags(50'000, "-unknown");
    Arguments distinct;
    for (auto& flag : flags) {
        flag += std::to_string(distinct.size());
        distinct.insert(distinct.end(), {flag.c_str(), "x"});
    }
    EXPECT_EQ(numberOfTexts(distinct), 0u);
    EXPECT_EQ(numberOfTexts(Arguments(100'000, "-man")), 100'000u);
    EXPECT_EQ(numberOfTexts(Arguments(100'000, "many")), 100'000u);
}

TEST_F(CommandLineValueProviderTest, TakesVeryLongArguments) {
    std::string const text(1 << 20, '%');
    std::string const flag = "-" + text;
    std::string const name(5'000, 'n');
    auto const* tool = createTool("tool{a " + name + "}");
    ParameterValueGroup result(nullptr);
    setArguments(provider, {"-a", text.c_str(), ("-" + name).c_str(), flag.c_str()});
    provider.getValues(tool, result, RESOLVE_FLAG_NAMES);
    EXPECT_TRUE(toText(result) == "?{tool{a=" + text + " " + name + "=<none>}}");
    // One message holds 4,095 characters at most.
    EXPECT_EQ(whatOf<ConfigurationException>([&] { provider.getValues(tool, result, STRICT_RECOGNITION); }),
              "\"" + text.substr(0, 4'094));
    EXPECT_EQ(whatOf<ConfigurationException>([&] { setArguments(provider, {text.c_str()}, STRICT_RECOGNITION); }),
              "The \"" + text.substr(0, 4'090));
}

/// The command line has no nested groups, but the visitor takes them.
TEST_F(CommandLineValueProviderTest, NamesInNestedGroupsAreResolvedThere) {
    auto const* root = createTool("tool{verbose in{version deep{value}} con(c)}")->getParameterGroup();
    auto const fix = [&](char const* tree) {
        NameFixer fixer(root);
        auto const values = treeOf(tree);
        auto const thrown = whatOf<ConfigurationException>([&] { values->accept(fixer); });
        return thrown == "<nothing>" ? toText(*values) : thrown;
    };
    EXPECT_EQ(fix("any{in{ve=1 DEEP{v=2}} verb=3 con{c=4} =5}"),
              "any?{in?{version?=1 DEEP?{value?=2}} verbose?=3 con?{c?=4} ?=5}");
    EXPECT_EQ(fix("any{no%s{}}"), "\"no%s\" is not a valid group id");
    EXPECT_EQ(fix("any{deep{}}"), "\"deep\" is not a valid group id");
    EXPECT_EQ(fix("any{verbose{}}"), "\"verbose\" is not a valid group id");
    EXPECT_EQ(fix("any{{}}"), "\"\" is not a valid group id");

    ParameterSearchVisitor search("ver");
    root->accept(search);
    EXPECT_STREQ(search.getFoundItem(1)->getName(), "version");
    EXPECT_EQ(whatOf<ContractViolationException>([&] { search.getFoundItem(2); }),
              contractText("index < mFoundItems.size()"));
}

} // namespace

} // namespace kivo::test
