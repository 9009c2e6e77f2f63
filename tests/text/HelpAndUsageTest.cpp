#include "support/CaseFile.h"
#include "support/Exceptions.h"
#include "support/Latin1Locale.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"
#include "text/ColumnText.h"
#include "text/HelpVisitor.h"
#include "text/UsageVisitor.h"
#include "text/WordWrap.h"

#include <configuration/ApplicationValuesProvider.h>

#include <algorithm>
#include <climits>
#include <clocale>
#include <cstring>
#include <sstream>

namespace kivo::test {

using namespace configuration;

namespace {

class UsageText : public ManagerTest {};

TEST_F(UsageText, ShowsASchema) {
    checkCases("text/usage.txt", [](FileCase const& row) {
        manager().reset();
        UsageVisitor visitor;
        createItem(row["schema"])->accept(visitor);
        return visitor.getUsage() + '\n';
    });
}

TEST(HelpText, IsWrittenInTwoColumns) {
    checkCases("text/help.txt", [](FileCase const& row) {
        Items items;
        auto* root = items.group("root{}");
        std::istringstream texts(row["items"]);
        for (std::string text; std::getline(texts, text);) {
            auto const colon = text.find(": ");
            auto* parameter = items.parameter(text.substr(0, colon));
            parameter->setDescription(unescaped(text.substr(colon + 2)).c_str());
            root->addItem(parameter);
        }
        std::istringstream widths(row["widths"]);
        unsigned long screen = 0, names = 0;
        widths >> screen >> names;
        HelpVisitor visitor(screen, names);
        root->accept(visitor);
        return std::string(visitor.getHelp());
    });
}

std::string wrapped(std::string_view text, unsigned long start, unsigned long width, unsigned long indent) {
    std::ostringstream output;
    wordWrap(output, text, start, width, indent, " /\\");
    return output.str();
}

TEST(WordWrap, BreaksLines) {
    checkCases("text/word-wrap.txt", [](FileCase const& row) {
        std::istringstream columns(row["columns"]);
        unsigned long start = 0, width = 0, indent = 0;
        columns >> start >> width >> indent;
        return wrapped(unescaped(row["text"]), start, width, indent);
    });
}

// Looking through the rest of the text for every line would take minutes here.
TEST(WordWrap, LosesNothingOfALongTextInLinearTime) {
    std::string const word(1 << 20, 'x');
    std::string joined = wrapped(word, 0, 4, 0);
    EXPECT_EQ(std::erase(joined, '\n'), 1u << 18);
    EXPECT_EQ(joined, word);
    EXPECT_EQ(wrapped(" " + word, 0, 1, 0).size(), 2 * word.size() + 1 + 1);
}

class DetailedHelpText : public ManagerTest {};

TEST_F(DetailedHelpText, SaysAllAboutSettings) {
    checkCases("text/detailed-help.txt", [&](FileCase const& row) {
        installation.write("etc/tool.crg", row["registry"]);
        manager().reset();
        if (auto const prefix = row["prefix"]; !prefix.empty()) {
            manager().enableEnvironment(prefix.c_str());
        }
        manager().setCommandLineStyle(row["style"] == "gnu" ? GNU_COMMAND_LINE : PLAIN_COMMAND_LINE);
        return std::string(manager().composeDetailedHelp("TOOL", std::stoul(row["width"])));
    });
}

/// The first line that is too wide or ends with a blank; only the names of settings may be wide.
std::string findBadLine(std::string const& help, unsigned long width) {
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);) {
        bool const isName = line.find("-p string") != line.npos || line.find("in.q string") != line.npos;
        if (line.ends_with(' ') || (!isName && columnsOf(line) > width)) {
            return line;
        }
    }
    return {};
}

// Every description is shown whole, in lines that fit and do nothing to a terminal, in linear time.
TEST_F(DetailedHelpText, IsHarmlessWhateverIsDescribed) {
    auto const& root = *createTool("tool{p?=1 in{q?=2}}")->getParameterGroup();
    struct Description {
        char const* part;
        char const* shown;
    };
    for (auto const& [part, shown] : {Description{"x", "x"},
                                      {"y z\t", "yz"},
                                      {"\x1b[2J", "\\x1b[2J"},
                                      {"\u202e", "\\u202e"},
                                      {"\u6f22", "\u6f22"},
                                      {"\x9b", "\\x9b"}}) {
        std::string description, expected;
        while (description.size() < 100'000) {
            description += part;
            expected += shown;
        }
        root.getItem(0UL)->setDescription(description.c_str());
        for (unsigned long const width : {1UL, 33UL, ULONG_MAX}) {
            std::string help = manager().composeDetailedHelp("tool", width);
            EXPECT_EQ(findBadLine(help, std::max(width, 2UL)), "") << width;
            std::erase_if(help, [](char c) { return c == ' ' || c == '\n'; });
            EXPECT_NE(help.find("-pstring" + expected + "[default:1]"), help.npos) << width << shown;
        }
    }
}

TEST(ColumnText, CountsInUtf8InEveryLocale) {
    auto const check = [] {
        EXPECT_EQ(columnsOf("gr\u00f6\u00dfe"), 5u);
        EXPECT_EQ(columnsOf("\u6f22\u5b57 a\u0301"), 6u);
        EXPECT_EQ(columnsOf("\xe4\xff\xe2\x82"), 4u);
        EXPECT_EQ(wrapWords("\u6f22\u5b57 a\u0301b", 3), (std::vector<std::string>{"\u6f22", "\u5b57", "a\u0301b"}));
    };
    check();
    {
        Latin1Locale const locale;
        check();
    }
    ASSERT_TRUE(std::setlocale(LC_ALL, "C.UTF-8"));
    check();
    std::setlocale(LC_ALL, "C");
}

class Compose : public ManagerTest {
protected:
    Specification* const mTool = createTool("tool{in<file>}");
    Specification* const mOther = createTool("other{out/n%s g(b ex[c]) long?*=x}");
    Manager& m = manager();
};

/// Composes its name.
struct NamedProvider : ValueProvider {
    NamedProvider(int priority, char const* name) : ValueProvider(priority), mName(name) {}
    char const* getName() const override { return mName; }
    char const* composeHelpMessage(Specification const*, unsigned long, unsigned long) const override { return mName; }
    char const* composeUsageMessage(Specification const*) const override { return mName; }
    char const* mName;
};

TEST_F(Compose, ChecksItsArgumentsInOrder) {
    auto const both = [&](char const* provider, char const* specification, unsigned long screen, unsigned long name) {
        auto const usage = whatOf([&] { m.composeUsageMessage(provider, specification); });
        auto const help = whatOf([&] { m.composeHelpMessage(provider, specification, screen, name); });
        return usage == help ? usage : usage + " " + help;
    };
    for (char const* nothing : {static_cast<char const*>(nullptr), ""}) {
        EXPECT_EQ(both(nothing, nothing, 0, 0), contractText("providerName != 0 && strlen(providerName) > 0"));
        EXPECT_EQ(both("CLI", nothing, 0, 0), contractText("specificationName != 0 && strlen( specificationName) > 0"));
    }
    EXPECT_EQ(both("CLI", "none", 0, 0), "Specification \"none\" was not found");
    EXPECT_EQ(both("CLI", "tool", 0, 0), "<nothing> " + contractText("screenWidth > 0"));
    EXPECT_EQ(both("CLI", "tool", 9, 9), "<nothing> " + contractText("maxParameterNameWidth < screenWidth"));
    ApplicationValuesProvider const values(1);
    EXPECT_EQ(whatOf([&] { values.composeUsageMessage(nullptr); }), contractText("specification != 0"));
    EXPECT_EQ(whatOf([&] { values.composeHelpMessage(nullptr, 0, 0); }), contractText("specification != 0"));
}

TEST_F(Compose, AsksTheFirstProviderOfTheName) {
    m.registerProvider(std::make_unique<NamedProvider>(2, "Name").release());
    m.registerProvider(std::make_unique<NamedProvider>(1, "NAME").release());
    EXPECT_STREQ(m.composeUsageMessage("name", "tool"), "NAME");
    EXPECT_STREQ(m.composeHelpMessage("name", "tool", 80, 30), "NAME");
    // Without a provider of the name, a command-line provider of the moment composes.
    EXPECT_STREQ(m.composeUsageMessage("nam", "TOOL"), "    -in file");
    EXPECT_EQ(std::strlen(m.composeHelpMessage("nam", "tool", ULONG_MAX, 13)), 9u + 65535u + 1u);
    EXPECT_EQ(m.getNumberOfProviders(), 2u);
}

TEST_F(Compose, KeepsATextUntilTheSameOperationIsCalledAgain) {
    ApplicationValuesProvider const provider(1);
    char const* ofProvider = provider.composeUsageMessage(mTool);
    char const* usage = m.composeUsageMessage("CLI", "tool");
    char const* help = m.composeHelpMessage("CLI", "other", 20, 13);
    provider.composeHelpMessage(mOther, 80, 30);
    EXPECT_STREQ(ofProvider, "    -in file");
    EXPECT_STREQ(usage, "    -in file");
    m.composeUsageMessage("CLI", "other");
    // In the order of the walk, without headings, and with one column for all.
    EXPECT_STREQ(help, "-n%s  Description  \n"
                       "-b    Description  \n"
                       "-c    Description  \n"
                       "-long Description  \n");
}

} // namespace

} // namespace kivo::test
