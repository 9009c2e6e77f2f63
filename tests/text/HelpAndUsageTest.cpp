#include "support/CaseFile.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"
#include "text/HelpVisitor.h"
#include "text/UsageVisitor.h"
#include "text/WordWrap.h"

#include <configuration/ApplicationValuesProvider.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <regex>
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
            auto const description = std::regex_replace(text.substr(colon + 2), std::regex("\\\\n"), "\n");
            parameter->setDescription(description.c_str());
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

// clang-format off
std::string wrapped(std::string_view text, unsigned long start, unsigned long width, unsigned long indent) {
    std::ostringstream output;
    wordWrap(output, text, start, width, indent, " /\\");
    return output.str();
}

TEST(WordWrap, BreaksLines) {
    struct Row {
        char const* label;
        char const* text;
        unsigned long start, width, indent;
        char const* lines;
    };
    for (auto const& row : {
        Row{"Empty", "", 0, 4, 2, "\n"},
        Row{"FitsExactly", "abcd", 0, 4, 2, "abcd\n"},
        Row{"Unlimited", "a b/c\nd", 0, ULONG_MAX, 3, "a b/c\nd\n"},

        Row{"LastBreakInReach", "aa bb cc", 0, 6, 0, "aa bb\ncc\n"},
        Row{"BreakAtTheWidth", "aa bb cc", 0, 5, 0, "aa bb\ncc\n"},
        Row{"OneSpaceIsDropped", "ab   cd", 0, 3, 0, "ab \n cd\n"},
        Row{"SpaceAtTheEnd", "abcd ", 0, 4, 2, "abcd\n  \n"},
        Row{"TabIsNoBreakButDropped", "abcd\tef g", 0, 4, 0, "abcd\nef g\n"},
        // The second line begins with a slash, which cannot end it.
        Row{"SlashBeginsTheNextLine", "/usr/local/lib", 0, 7, 2, "/usr\n  /loca\n  l/lib\n"},
        Row{"BackslashBeginsTheNextLine", "C:\\a\\bc", 0, 4, 0, "C:\\a\n\\bc\n"},

        Row{"LongWord", "abcdefghij", 0, 4, 1, "abcd\n efg\n hij\n"},
        Row{"LongWordAfterASpace", "a bcdefghijk", 0, 4, 0, "a\nbcde\nfghi\njk\n"},
        // Without a break so far, the width counts from the beginning of the text.
        Row{"LongWordAfterALineFeed", "ab\ncdefghijkl", 0, 6, 0, "ab\ncde\nfghijk\nl\n"},
        Row{"LongWordAfterSpaceAndLineFeed", "a b\ncdefghijkl", 0, 6, 0, "a b\ncdefgh\nijkl\n"},

        Row{"LineFeedThatFits", "a\nb c", 0, 5, 2, "a\nb c\n"},
        Row{"LineFeedBeforeASpace", "a\nb cd", 0, 5, 2, "a\n  b\n  cd\n"},
        Row{"LineFeedAtTheWidth", "ab d\nef", 0, 4, 0, "ab d\nef\n"},
        Row{"LineFeedBeyondTheWidth", "ab cd\nefgh", 0, 4, 0, "ab\ncd\nefgh\n"},
        // A line cannot end where it begins: it goes on over the second line feed.
        Row{"BlankLine", "one\n\ntwo three four five", 0, 15, 2, "one\n  \ntwo three fo\n  ur five\n"},
        Row{"CarriageReturnAndLineFeed", "ab\r\ncdef", 0, 4, 0, "ab\n\ncde\nf\n"},

        Row{"StartShortensEveryLine", "abcdefgh", 2, 6, 1, "abcd\n   efg\n   h\n"},
        Row{"NoWidth", "abc", 0, 0, 0, "a\nb\nc\n"},
        Row{"StartBeyondTheWidth", "ab", 3, 2, 0, "a\n   b\n"},
        Row{"IndentBeyondTheWidth", "abcd", 0, 2, 3, "ab\n   c\n   d\n"}}) {
        EXPECT_EQ(wrapped(row.text, row.start, row.width, row.indent), row.lines) << row.label;
    }
}
// clang-format on

// Looking through the rest of the text for every line would take minutes here.
TEST(WordWrap, LosesNothingOfALongTextInLinearTime) {
    std::string const word(1 << 20, 'x');
    std::string joined = wrapped(word, 0, 4, 0);
    EXPECT_EQ(std::erase(joined, '\n'), 1u << 18);
    EXPECT_EQ(joined, word);
    EXPECT_EQ(wrapped(" " + word, 0, 1, 0).size(), 2 * word.size() + 1 + 1);
}

class Compose : public ManagerTest {
protected:
    Specification* const mTool = createTool("tool{in<file>}");
    Specification* const mOther = createTool("other{out/n%s g(b ex[c]) long?*=x}");
    Manager& m = manager();
};

// In the order of the walk, without headings, and with one column for all.
constexpr char const* OTHER_HELP = "-n%s  Description  \n"
                                   "-b    Description  \n"
                                   "-c    Description  \n"
                                   "-long Description  \n";

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
    // Without a provider of the name, a command-line provider of the moment composes.
    EXPECT_STREQ(m.composeUsageMessage("NOBODY", "TOOL"), "    -in file");
    EXPECT_STREQ(m.composeHelpMessage("NOBODY", "other", 20, 13), OTHER_HELP);
    EXPECT_EQ(std::strlen(m.composeHelpMessage("NOBODY", "tool", ULONG_MAX, 13)), 9u + 65535u + 1u);

    m.registerProvider(std::make_unique<NamedProvider>(2, "Name").release());
    m.registerProvider(std::make_unique<NamedProvider>(1, "NAME").release());
    EXPECT_STREQ(m.composeUsageMessage("name", "tool"), "NAME");
    EXPECT_STREQ(m.composeHelpMessage("name", "tool", 80, 30), "NAME");
    EXPECT_STREQ(m.composeUsageMessage("nam", "tool"), "    -in file");
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
    EXPECT_STREQ(help, OTHER_HELP);
}

} // namespace

} // namespace kivo::test
