#include "providers/XercesValues.h"
#include "support/CaseFile.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"
#include "support/Repeat.h"

#include <configuration/ApplicationValuesProvider.h>
#include <configuration/CommandLineValueProvider.h>
#include <configuration/EnvironmentValueProvider.h>
#include <configuration/Flags.h>
#include <configuration/XmlFileValueProvider.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <sstream>
#include <utility>

#include <unistd.h>

namespace kivo::test {

using namespace configuration;

namespace {

int flagsOf(FileCase const& row) {
    auto const flags = row["flags"];
    return (flags.find("strict") == std::string::npos ? 0 : STRICT_RECOGNITION) |
           (flags.find("resolve") == std::string::npos ? 0 : RESOLVE_FLAG_NAMES);
}

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

TEST_F(ProviderTest, MatchesChecksAndAggregatesACopy) {
    checkCases("providers/values.txt", [](FileCase const& row) {
        manager().reset();
        auto const* tool = createTool(row["schema"]);
        ApplicationValuesProvider provider(0);
        provider.enableProvider(*treeOf(row["values"]), 0);
        auto const before = cacheOf(provider);
        auto const given = ask(provider, tool, flagsOf(row));
        EXPECT_EQ(ask(provider, tool, flagsOf(row)), given);
        EXPECT_EQ(cacheOf(provider), before) << "the provider's own tree does not change";
        return lines({given});
    });
}

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
    EXPECT_EQ(whatOf([&] { application.enableProvider("x", 0); }), "setArguments(const char*) is not supported");
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

TEST_F(ProviderTest, ReadsTheEnvironment) {
    checkCases("providers/environment.txt", [](FileCase const& row) {
        manager().reset();
        auto const* const tool = createTool(row["schema"]);
        std::vector<std::string> entries;
        std::istringstream texts(row["environment"]);
        for (std::string text; std::getline(texts, text);) {
            entries.push_back(text);
        }
        std::vector<char*> pointers;
        std::ranges::transform(entries, std::back_inserter(pointers), [](auto& entry) { return entry.data(); });
        pointers.push_back(nullptr);
        auto* const before = std::exchange(environ, pointers.data());
        EnvironmentValueProvider provider(0);
        auto const thrown = whatOf([&] { provider.enableProvider(row["prefix"].c_str(), 0); });
        environ = before;
        EXPECT_EQ(provider.getEnabled(), thrown == "<nothing>");
        return lines({provider.getEnabled() ? ask(provider, tool, STRICT_RECOGNITION) : thrown});
    });
}

TEST_F(ProviderTest, ReadsTheEnvironmentOnce) {
    auto const* const tool = createTool("tool{level?=1}");
    EnvironmentValueProvider provider(0);
    std::optional<ScopedEnvironment> variable(std::in_place, "TOOL_LEVEL", "2");
    provider.enableProvider("TOOL", 0);
    variable.reset();
    EXPECT_EQ(whatOf([&] { provider.setArguments("=", 0); }), "\"=\" is not a valid prefix of environment variables");
    EXPECT_EQ(ask(provider, tool), "?{tool{level=2}}");
    provider.reset();
    EXPECT_EQ(ask(provider, tool), "?{}");
    EXPECT_EQ(whatOf([&] { provider.setArguments(static_cast<char const*>(nullptr), 0); }),
              contractText("argument != 0"));
}

using Arguments = std::vector<char const*>;

class CommandLineTest : public ProviderTest {
protected:
    /// Sets arguments, after a program's name.
    void set(Arguments arguments, int flags = 0) {
        arguments.insert(arguments.begin(), "prog");
        provider.setArguments(static_cast<int>(arguments.size()), arguments.data(), flags);
    }

    /// The arguments of a case; "<none>" stands for one without a text.
    Arguments textsOf(FileCase const& row, char separator) {
        texts.clear();
        std::istringstream stream(row["arguments"]);
        for (std::string text; std::getline(stream, text, separator);) {
            texts.push_back(unescaped(text));
        }
        Arguments arguments;
        for (auto const& text : texts) {
            arguments.push_back(text == "<none>" ? nullptr : text.c_str());
        }
        return arguments;
    }

    /// What was parsed.
    std::string parsed() {
        manager().reset();
        ask(provider, createTool("t{}"));
        return cacheOf(provider);
    }

    std::vector<std::string> texts;
    CommandLineValueProvider provider{1};
};

TEST_F(CommandLineTest, TakesArgumentsApartOrKeepsTheEarlierOnes) {
    checkCases("providers/command-line.txt", [this](FileCase const& row) {
        set({"-kept"});
        auto const thrown = whatOf([&] { set(textsOf(row, '\n'), flagsOf(row)); });
        EXPECT_TRUE(thrown == "<nothing>" || parsed() == "?{t?{kept?=<none>}}");
        return lines({thrown == "<nothing>" ? parsed() : thrown});
    });
    set({"-\xff\x80%s", "\xc3(%n", "-a\nb", "\x01"});
    EXPECT_EQ(parsed(), "?{t?{\xff\x80%s?=\xc3(%n a\nb?=\x01}}");
}

/// Small specifications are walked, large ones searched by index.
TEST_F(CommandLineTest, ResolvesTheNamesOfFlags) {
    for (int const padding : {0, 40}) {
        SCOPED_TRACE(padding);
        checkCases("providers/flag-names.txt", [&](FileCase const& row) {
            manager().reset();
            auto const* tool = createTool(row["schema"], {.schema = padding});
            auto const arguments = textsOf(row, ' ');
            set(arguments);
            auto const given = ask(provider, tool, flagsOf(row));
            EXPECT_TRUE(provider.removeParameter(tool, arguments[0] + 1)); // as it was typed
            return lines({given});
        });
    }
}

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
    FileCase const distinct{{{"arguments", repeat(50'000, "-unknown# ")}}, ""};
    set(textsOf(distinct, ' '));
    EXPECT_EQ(ask(provider, tool, RESOLVE_FLAG_NAMES), "?{}");
    for (char const* argument : {"-man", "many"}) {
        set(Arguments(100'000, argument));
        EXPECT_EQ(ask(provider, tool, RESOLVE_FLAG_NAMES).size(), sizeof("?{tool{many=}}") + 7 * 100'000 - 2);
    }
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
    checkCases("providers/xml-values.txt", [this](FileCase const& row) { return lines({read(row["file"])}); });
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
