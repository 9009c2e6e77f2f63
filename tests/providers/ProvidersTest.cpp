#include "providers/XercesValues.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"

#include <configuration/ApplicationValuesProvider.h>
#include <configuration/CommandLineValueProvider.h>
#include <configuration/Flags.h>
#include <configuration/XmlFileValueProvider.h>

#include <algorithm>

namespace kivo::test {

using namespace configuration;

namespace {

class ProviderTest : public ManagerTest {
protected:
    static std::string cacheOf(ValueProvider const& provider) { return toText(provider.getDataCache()); }

    /// The values that a provider gives, followed by "." when no further one is to be asked, or what it throws.
    static std::string ask(ValueProvider& provider, Specification const* specification, int flags = 0) {
        ParameterValueGroup result(nullptr);
        bool goesOn = true;
        auto const thrown = whatOf([&] { goesOn = provider.getValues(specification, result, flags); });
        EXPECT_TRUE(thrown == "<nothing>" || result.getNumberOfItems() == 0);
        return thrown == "<nothing>" ? toText(result) + (goesOn ? "" : ".") : thrown;
    }
};

struct Case {
    char const* label;
    char const* schema;
    char const* values;
    std::string outcome;
    int flags = 0;
};

constexpr char const* HELPFUL = "tool{must n:int help:bool? quiet:bool? notitle:bool?}";

// clang-format off
TEST_F(ProviderTest, MatchesChecksAndAggregatesACopy) {
    for (auto const& row : {
        Case{"nothing", "tool{a}", "{}", "?{}"},
        Case{"an empty group", "tool{a}", "{tool{}}", "?{}"},
        // The constraint's id and name differ: two groups are split off, and merged again.
        Case{"constraints", "tool{a u* con/Name(c d)}", "{tool{c=1 u=x A=2 d=3}}", "?{tool{u=x a=2 con{c=1 d=3}}}"},
        // Merged before the first phase sees them.
        Case{"repeated ones", "tool{a in{q r}}", "{tool{a=1 in{q=1} a=2 zzz=3 in{q=2 r=3}}}", "?{tool{a=1 in{q=1 r=3}}}"},
        Case{"unknown ones, strictly", "tool{a}", "{tool{a=1,2 zzz=1 yyy=2}}",
            "\"zzz\" is not a recognized parameter\n\"yyy\" is not a recognized parameter", STRICT_RECOGNITION},
        Case{"all faults of a phase", "tool{a b%s}", "{tool{a=1,2 b%s=3,4}}",
            "\"a\" cannot be provided more than once\n\"b%s\" cannot be provided more than once"},

        Case{"help with its manners", HELPFUL, "{tool{notitle=true n=x,y quiet=<none> HELP=<none>}}",
            "?{help=1 quiet=1 notitle=true}."},
        Case{"help by its first text", HELPFUL, "{tool{help=no,0 quiet=false notitle=0,1}}", "?{help=no,0}."},
        Case{"help declined", HELPFUL, "{tool{help=FALSE quiet=1}}", "?{tool{help=FALSE quiet=1}}"},
        Case{"help in a constraint", "tool{con(help:bool?)}", "{tool{help=1}}", "?{help=1}."},
        Case{"help in a container", "tool{in{help:bool?}}", "{tool{in{help=1}}}", "?{tool{in{help=1}}}"},
        Case{"help without required text", "tool{help:bool}", "{tool{help=<none>}}", "?{tool{help=<none>}}"},
        Case{"help in one of two groups", "tool*{help:bool?}", "{tool{help=1} tool{}}", "?{tool{help=1} tool{}}"},
        Case{"help after faults", HELPFUL, "{tool{help=1} a=1}", "Unnamed group cannot contain Parameter \"a\""}}) {
        SCOPED_TRACE(row.label);
        manager().reset();
        auto const* tool = createTool(row.schema);
        ApplicationValuesProvider provider(0);
        provider.enableProvider(*treeOf(row.values), 0);
        auto const before = cacheOf(provider);
        for (int round = 0; round < 2; ++round) { // the second as the first: the provider's own tree does not change
            EXPECT_EQ(ask(provider, tool, row.flags), row.outcome);
            EXPECT_EQ(cacheOf(provider), before);
        }
    }
}
// clang-format on

TEST_F(ProviderTest, AddsToWhatEarlierProvidersGaveAndKeepsThatWhenItFails) {
    auto const* tool = createTool("tool{a u* con(c d)}");
    ApplicationValuesProvider provider(0);
    ParameterValueGroup result(nullptr);
    auto const add = [&](char const* values) {
        provider.setArguments(*treeOf(values), 0);
        return whatOf([&] { EXPECT_TRUE(provider.getValues(tool, result, 0)); });
    };
    EXPECT_EQ(add("{tool{a=1 u=x c=3}}"), "<nothing>");
    EXPECT_EQ(add("{tool{d=4 a=2 u=y,z c=5}}"), "<nothing>");
    EXPECT_EQ(add("{tool{u=q a=1,2}}"), "\"a\" cannot be provided more than once");
    EXPECT_EQ(toText(result), "?{tool{a=1 u=x,y,z con{c=3 d=4}}}");
    EXPECT_EQ(ask(provider, nullptr), contractText("specification != 0"));
}

TEST_F(ProviderTest, IsEnabledUntilItIsResetAndRefusesInputThatItDoesNotTake) {
    ApplicationValuesProvider application(-7);
    auto const values = treeOf("{tool{a=1}}");
    application.setArguments(*values, 0);
    EXPECT_FALSE(application.getEnabled());
    application.enableProvider(*values, 0);
    values->addValue("later", "1");
    auto const file = whatOf([&] { application.enableProvider("x", 0); });
    EXPECT_EQ(file, "setArguments(const char*) is not supported");
    auto const arguments = whatOf([&] { application.enableProvider(0, nullptr, 0); });
    EXPECT_EQ(arguments, "setArguments(int, const char*) is not supported");
    EXPECT_TRUE(application.getEnabled());
    EXPECT_EQ(cacheOf(application), "?{tool?{a?=1}}");
    application.reset();
    EXPECT_FALSE(application.getEnabled());
    EXPECT_EQ(cacheOf(application) + std::to_string(application.getPriority()), "?{}-7");
    CommandLineValueProvider commandLine(0);
    auto const tree = whatOf([&] { commandLine.enableProvider(*values, 0); });
    EXPECT_EQ(tree, "setArguments(const ParameterValueGroup&) is not supported");
    EXPECT_FALSE(commandLine.getEnabled());
}

using Arguments = std::vector<char const*>;

class CommandLineTest : public ProviderTest {
protected:
    /// Sets arguments, after a program's name.
    void set(Arguments arguments, int flags = 0) {
        arguments.insert(arguments.begin(), "prog");
        provider.setArguments(static_cast<int>(arguments.size()), arguments.data(), flags);
    }

    /// What was parsed.
    std::string parsed() {
        manager().reset();
        ask(provider, createTool("t{}"));
        return cacheOf(provider);
    }

    CommandLineValueProvider provider{1};
};

// clang-format off
TEST_F(CommandLineTest, TakesArgumentsApartOrKeepsTheEarlierOnes) {
    struct Row {
        Arguments arguments;
        std::string outcome; ///< what is parsed, or what is thrown
        int flags = 0;
    };
    for (auto const& row : {
        Row{{"-port", "80", "-verbose"}, "?{t?{port?=80 verbose?=<none>}}"},
        // A value does not begin with a dash, and a blank one is none.
        Row{{"-level", "-5", " \t-6"}, "?{t?{level?=<none> 5?=<none> 6?=<none>}}"},
        Row{{"-a", " \n ", "-b", "", "-c", nullptr}, "?{t?{a?=<none> b?=<none> c?=<none>}}"},
        Row{{"-Tag", "a", "-x", "-tag", "-TAG", "b"}, "?{t?{Tag?=a,<none>,b x?=<none>}}"},
        Row{{"--port", "1", "---", "-a=b"}, "?{t?{-port?=1 --?=<none> a=b?=<none>}}"},
        Row{{"word", "-a", "b", "c", "word"}, "?{t?{word?=<none>,<none> a?=b c?=<none>}}"},
        Row{{"\r\n-a b\v", "\f c d\t", "- e"}, "?{t?{a b?=c d  e?=<none>}}"},
        Row{{"-\xff\x80%s", "\xc3(%n", "-a\nb", "\x01"}, "?{t?{\xff\x80%s?=\xc3(%n a\nb?=\x01}}"},

        Row{{"-a", " -  "}, "A command line parameter cannot be empty", STRICT_RECOGNITION},
        Row{{"value", " \t"}, contractText("parameterItemId != 0 && *parameterItemId != '\\0'")},
        Row{{""}, "The \"\" command line argument is not recognized", STRICT_RECOGNITION},
        Row{{"-a", "b", " c%s d "}, "The \"c%s d\" command line argument is not recognized",
            STRICT_RECOGNITION | RESOLVE_FLAG_NAMES}}) {
        set({"-kept"});
        auto const thrown = whatOf([&] { set(row.arguments, row.flags); });
        EXPECT_EQ(thrown == "<nothing>" ? parsed() : thrown, row.outcome);
        EXPECT_TRUE(thrown == "<nothing>" || parsed() == "?{t?{kept?=<none>}}");
    }
}

#define AMBIGUOUS(flag, names) \
    "The flag \"" flag "\" is ambiguous, matching the following allowed flags: " names ". Please be more specific."

/// Small specifications are walked, large ones searched by index.
TEST_F(CommandLineTest, ResolvesTheNamesOfFlags) {
    struct Row {
        char const* label;
        char const* schema;
        Arguments arguments;
        char const* outcome;
        int flags = RESOLVE_FLAG_NAMES;
    };
    for (auto const& row : {
        Row{"ABeginning", "tool{verbose:bool? version}", {"-VERB"}, "?{tool{verbose=1}}"},
        Row{"TheIdOfAName", "tool{p1/port in{p2/target}}", {"-po", "80", "-t", "x"}, "?{tool{p1=80 p2=x}}"},
        Row{"NotTheBeginningOfAnId", "tool{p11/port}", {"-p1", "80"}, "?{}"},
        Row{"InNestedGroupsInSchemaOrder", "tool{b in{a2 ex[a1/A1]} a3}", {"-a", "x"}, AMBIGUOUS("a", "a2, A1, a3")},
        Row{"AFullNameDoesNotWin", "tool{%s %s%n}", {"-%S"}, AMBIGUOUS("%S", "%s, %s%n")},
        Row{"HiddenOnesByTheirWholeId", "tool{secret~ secs}", {"-sec", "1", "-SECRET", "2", "-secr", "3"},
            "?{tool{secs=1 secret=2}}"},
        Row{"AVisibleNameBeatsAHiddenId", "tool{s~ secs}", {"-s", "1"}, "?{tool{secs=1}}"},
        Row{"TheSameParameterMerges", "tool{verbose* x}", {"-verb", "a", "-x", "1", "-verbose", "-VERBO", "b"},
            "?{tool{verbose=a,<none>,b x=1}}"},
        Row{"TheSameBoundedParameter", "tool{verbose}", {"-verb", "a", "-verbose", "b"},
            "\"verbose\" cannot be provided more than once"},
        Row{"UnknownOnesMergeToo", "tool{x}", {"-nope%d", "1", "-NOPE%d", "2", "y"},
            "\"nope%d\" is not a recognized parameter\n\"y\" is not a recognized parameter",
            RESOLVE_FLAG_NAMES | STRICT_RECOGNITION},
        Row{"WithoutResolution", "tool{verbose v~}", {"-verb", "1", "-V", "2"}, "?{tool{v=2}}", 0},
        Row{"HelpByItsBeginning", "tool{help:bool? a}", {"-he", "-zzz"}, "?{help=1}."}}) {
        for (int const padding : {0, 40}) {
            SCOPED_TRACE(row.label + std::to_string(padding));
            manager().reset();
            auto const* tool = createTool(row.schema, {.schema = padding});
            set(row.arguments);
            EXPECT_EQ(ask(provider, tool, row.flags), row.outcome);
            EXPECT_TRUE(provider.removeParameter(tool, row.arguments[0] + 1)); // as it was typed
        }
    }
}
// clang-format on

TEST_F(CommandLineTest, ServesEverySpecificationWithItsArgumentsUntilTheyAreForgotten) {
    char const* arguments[] = {"prog", "-ab", "1", "-help"};
    provider.enableProvider(4, arguments, 0);
    auto const* one = createTool("one{abc}");
    EXPECT_EQ(ask(provider, one, RESOLVE_FLAG_NAMES), "?{one{abc=1}}");
    EXPECT_EQ(ask(provider, createTool("two{abd ab help:bool?}")), "?{help=1}.");
    EXPECT_EQ(ask(provider, nullptr), contractText("specification != 0"));

    for (char const* nothing : {static_cast<char const*>(nullptr), ""}) {
        EXPECT_EQ(whatOf([&] { provider.removeParameter(nullptr, nothing); }), contractText("specification != 0"));
        EXPECT_EQ(whatOf([&] { provider.removeParameter(one, nothing); }),
                  contractText("parameterName != 0 && *parameterName != '\\0'"));
    }
    EXPECT_FALSE(provider.removeParameter(one, "-ab"));
    EXPECT_TRUE(provider.removeParameter(one, "AB"));
    EXPECT_FALSE(provider.removeParameter(one, "ab"));
    EXPECT_EQ(parsed(), "?{t?{help?=<none>}}");
    provider.reset();
    EXPECT_EQ(cacheOf(provider), "?{}");
    for (int const count : {-1, 1, 4}) {
        EXPECT_EQ(parsed(), "?{t?{}}");
        provider.setArguments(count, count == 4 ? nullptr : arguments, 0);
    }
    EXPECT_EQ(parsed(), "?{t?{}}");
}

/// In time that grows with their number, or the test runs for minutes.
TEST_F(CommandLineTest, TakesVeryManyArguments) {
    auto const* tool = createTool("tool{many* a}");
    std::vector<std::string> flags;
    Arguments distinct;
    for (int i = 0; i < 50'000; ++i) {
        flags.push_back("-unknown" + std::to_string(i));
    }
    std::ranges::transform(flags, std::back_inserter(distinct), &std::string::c_str);
    set(distinct);
    EXPECT_EQ(ask(provider, tool, RESOLVE_FLAG_NAMES), "?{}");
    for (char const* argument : {"-man", "many"}) {
        set(Arguments(100'000, argument));
        EXPECT_EQ(ask(provider, tool, RESOLVE_FLAG_NAMES).size(), sizeof("?{tool{many=}}") + 7 * 100'000 - 2);
    }
}

TEST_F(CommandLineTest, TakesVeryLongArguments) {
    std::string const text(1 << 20, '%');
    auto const* tool = createTool("tool{a}");
    set({"-a", text.c_str(), ("-" + text).c_str()});
    EXPECT_TRUE(ask(provider, tool, RESOLVE_FLAG_NAMES) == "?{tool{a=" + text + "}}");
    EXPECT_EQ(ask(provider, tool, STRICT_RECOGNITION), "\"" + text.substr(0, 4'094)); // messages are cut
}

class XmlFileTest : public ProviderTest {
protected:
    XmlFileTest() { manager(); } // its own records are in the log before ours

    std::vector<std::string> log() const { return installation.mainLog("Configuration"); }

    /// Lets the provider read a file. @return what it throws, or its tree
    std::string read(std::string const& content) {
        auto const thrown =
            whatOf([&] { provider.enableProvider(installation.write("values.xml", content).c_str(), 0); });
        return thrown == "<nothing>" ? cacheOf(provider) : thrown;
    }

    std::string const file = installation.at("values.xml");
    XmlFileValueProvider provider{7};
};

TEST_F(XmlFileTest, MakesATreeOfElementsAndAttributes) {
    auto const records = log();
    for (auto const& [content, tree] : std::initializer_list<std::pair<char const*, char const*>>{
             {"<?xml version='1.0'?><r/>", "r?{}"},
             {"<r a='1'><b c='2'><d e=''/></b><a/><b/></r>", "r?{a?=1 b?{c?=2 d?{e?=}} a?{} b?{}}"},
             {"<r Z='1' value='2' z='3'/>", "r?{Z?=1,3 value?=2}"}, // attributes have no order
             {"<!--c--><r>text<!--c--><?p?><a/>more<![CDATA[<b/>]]></r>", "r?{a?{}}"},
             {"<p:r xmlns:p='u' p:a='1'/>", "p:r?{p:a?=1 xmlns:p?=u}"},
             {"<\xC3\xA9 \xC3\xBC='&#x20AC;%s%n'/>", "\xC3\xA9?{\xC3\xBC?=\xE2\x82\xAC%s%n}"},
             {"<!DOCTYPE r [<!ATTLIST a c CDATA '2'><!ENTITY e '&lt;x'><!ENTITY f '<a b=\"1\"/>'>]><r v='&e;'>&f;</r>",
              "r?{v?=<x a?{b?=1 c?=2}}"}}) {
        EXPECT_EQ(read(content), tree);
    }
    EXPECT_EQ(log(), records);
    EXPECT_EQ(whatOf([] { getGroupFromXmlElement(nullptr); }), contractText("element != 0"));
}

TEST_F(XmlFileTest, WarningsAreRecordedAndFaultsThrown) {
    std::string const declarations = "<!DOCTYPE r [<!NOTATION n PUBLIC 'p'>\n<!NOTATION n PUBLIC 'p'>\n"
                                     "<!NOTATION n PUBLIC 'p'>]>";
    auto records = log();
    EXPECT_EQ(read(declarations + "<r/>"), "r?{}");
    auto const warning = "XML WARNING: notation 'n' has already been declared. File: \"" + file + "\". Line: ";
    EXPECT_EQ(read(declarations + "\n<r>"),
              "XML ERROR: input ended before all started tags were ended; last tag started is 'r'. File: \"" + file +
                  "\". Line: 4. Column: 4.");
    records.resize(records.size() + 2,
                   "loadFromXmlFile:\n" + warning + "2. Column: 24.\n" + warning + "3. Column: 24.\n");
    EXPECT_EQ(log(), records);
}

TEST_F(XmlFileTest, RepeatedElementsAreRewrittenOnceForTheFirstSpecification) {
    auto const* const tool = createTool("tool{p u* many*{n:int w*}}");
    auto const* const other = createTool("other{x}");
    constexpr char const* RAW = "Tool?{u?=0 U?{value?=1} u?{value?=2} many?{n?=3 w?{value?=x}} many?{}}";
    auto const readAndAsk = [&](Specification const* specification) {
        read("<Tool u='0'><U value='1'/><u value='2'/><many n='3'><w value='x'/></many><many/></Tool>");
        EXPECT_EQ(cacheOf(provider), RAW);
        return ask(provider, specification);
    };
    auto const isRewritten = [&] {
        provider.setDataCache(*treeOf("tool{u{value=3}}"));
        ask(provider, tool);
        return cacheOf(provider) == "tool?{u?=3}";
    };

    EXPECT_EQ(readAndAsk(tool), "?{tool{u=0,1,2 many{n=3 w=x} many{}}}");
    EXPECT_EQ(cacheOf(provider), "Tool?{u?=0,1,2 many?{n?=3 w?=x} many?{}}");
    EXPECT_FALSE(isRewritten());
    readAndAsk(other); // which has no "u"
    ask(provider, tool);
    EXPECT_EQ(read("<tool").substr(0, 11), "XML ERROR: ");
    EXPECT_EQ(cacheOf(provider), RAW);
    EXPECT_FALSE(isRewritten());
    read("<tool/>"); // another file, another turn
    EXPECT_TRUE(isRewritten());
    provider.reset();
    EXPECT_EQ(cacheOf(provider), "?{}");
    EXPECT_TRUE(isRewritten());

    read("<tool u='0'><u value='1'/><u Value2='2'/></tool>");
    EXPECT_EQ(ask(provider, tool) + ask(provider, tool),
              "\"u\" is not a valid parameter\"u\" is not a valid parameter");
    EXPECT_EQ(cacheOf(provider), "tool?{u?=0 u?{value?=1} u?{Value2?=2}}");
    EXPECT_EQ(ask(provider, nullptr), contractText("spec != 0"));
}

TEST_F(XmlFileTest, OfAnArgumentVectorTheFirstIsTheFile) {
    installation.write("values.xml", "<r/>");
    char const* const arguments[] = {file.c_str(), "none"};
    provider.enableProvider(2, arguments, 3);
    EXPECT_TRUE(provider.getEnabled());
    EXPECT_EQ(cacheOf(provider), "r?{}");
    for (int const count : {0, -1}) {
        EXPECT_EQ(whatOf([&] { provider.setArguments(count, nullptr, 0); }), "Must provide at least one argument");
    }
    EXPECT_EQ(whatOf([&] { provider.setArguments(1, nullptr, 0); }), contractText("argv != 0"));
    EXPECT_EQ(whatOf([&] { provider.setArguments(nullptr, 0); }), contractText("argument != 0"));
    EXPECT_EQ(cacheOf(provider), "r?{}");
    EXPECT_EQ(whatOf([&] { provider.setArguments(*treeOf("{}"), 0); }),
              "setArguments(const ParameterValueGroup&) is not supported");
}

} // namespace

} // namespace kivo::test
