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
#include <sstream>

namespace kivo::test {

using namespace configuration;

namespace {

// clang-format off
struct UsageCase {
    char const* label;
    char const* schema;
    char const* usage;
};

class UsageText : public ManagerTest, public testing::WithParamInterface<UsageCase> {};

TEST_P(UsageText, IsWrittenAsSpecified) {
    UsageVisitor visitor;
    createItem(GetParam().schema)->accept(visitor);
    EXPECT_EQ(visitor.getUsage(), GetParam().usage);
}

INSTANTIATE_TEST_SUITE_P(UsageVisitor, UsageText, testing::Values(
    UsageCase{"OneLineForEachTopLevelItem", "root{in<file> verbose:bool? define<name>?* ex[fast:bool safe:bool]}",
        "    -in file\n"
        "    [-verbose]\n"
        "    [{-define name}]\n"
        "    -fast | -safe"},
    UsageCase{"TheNameIsShownNotTheIdAndIsNoFormat", "root{a/100%s%n<%d>*}", "    {-100%s%n %d}"},
    UsageCase{"AFlagShowsNoValueNameAndAValueNeedsNone", "root{a:bool<x> b}", "    -a\n    -b"},
    UsageCase{"TheRootsOwnBrackets", "root?*{con(a b) c}", "    -a -b\n    -c"},
    UsageCase{"AnExclusiveRoot", "root?[con(a b) c]", "    (-a -b)\n    -c"},

    UsageCase{"NoItems", "root{}", "    "},
    UsageCase{"OnlyHidden", "root{h1~ h2~}", "    "},
    UsageCase{"HiddenFirstAndBetween", "root{h1~ a h2~ h3~ b}", "    -a\n    -b"},
    // The line was begun before the hidden parameter was seen.
    UsageCase{"HiddenLast", "root{a b h~}", "    -a\n    -b\n    "},
    // Inside groups separators stay; after a group that ends with a hidden parameter the line goes on.
    UsageCase{"HiddenInAContainer", "root{in{h1~ a h2~ b h3~} c d}", "     -a  -b -c\n    -d"},
    UsageCase{"HiddenInAChoice", "root{ex?[h1~ a h2~] in?*{h3~} b}", "    [ | -a | ][{}]-b"},

    UsageCase{"NestedRepeatableContainers", "root{i?*{j?{a b<x>?*} k*{c}}}", "    [{[-a [{-b x}]] {-c}}]"},
    UsageCase{"GroupConstraintInAChoice", "root{ex?[con(a b) c empty()]}", "    [(-a -b) | -c | ()]"},
    UsageCase{"GroupConstraintElsewhere", "root{con1(a con2(b)) in?{con3(c d)}}", "    -a -b\n    [-c -d]"},
    UsageCase{"OthersInAChoice", "root{ex1[con(a ex2?[b c]) in*{d e}]}", "    (-a [-b | -c]) | {-d -e}"}),
    Label());

struct HelpCase {
    char const* label;
    unsigned long screenWidth, maxNameWidth;
    std::vector<std::pair<char const*, char const*>> parameters; ///< each with its description
    char const* help;
};

class HelpText : public testing::TestWithParam<HelpCase> {};

TEST_P(HelpText, IsWrittenInTwoColumns) {
    Items items;
    auto* root = items.group("root{}");
    for (auto const& [item, description] : GetParam().parameters) {
        auto* parameter = items.parameter(item);
        parameter->setDescription(description);
        root->addItem(parameter);
    }
    HelpVisitor visitor(GetParam().screenWidth, GetParam().maxNameWidth);
    root->accept(visitor);
    EXPECT_EQ(visitor.getHelp(), GetParam().help);
}

// 67 characters: what a description line of an 80-column screen holds beside a name column of 11.
#define FULL_LINE "0123456789012345678901234567890123456789012345678901234567890123456"

INSTANTIATE_TEST_SUITE_P(HelpVisitor, HelpText, testing::Values(
    HelpCase{"OneLineIsOneCharacterShorterThanTheScreen", 80, 30, {{"output<to>", FULL_LINE}, {"in", FULL_LINE " more"}},
        "-output to " FULL_LINE " \n"
        "-in        " FULL_LINE " \n"
        "           more                                                                \n"},
    HelpCase{"NameColumnAtItsLimit", 30, 12,
        {{"directory<path>", "Where the backup is written to"}, {"abcdefghijklmnopqrstuvw", "Long"}},
        "-directory  Where the backup \n"
        "   path     is written to    \n"
        "-abcdefghij Long             \n"
        "   klmnopqr                  \n"
        "   stuvw                     \n"},
    HelpCase{"NameEndsAtASlashOrABackslash", 20, 9, {{"p/etc\\kivo", "One of/two"}},
        "-etc     One of    \n"
        "   \\kivo /two      \n"},
    HelpCase{"HiddenParametersWidenTheColumn", 20, 15, {{"v/%s", "Be %n"}, {"secret~", "d"}}, "-%s     Be %n      \n"},
    HelpCase{"UnseenValueNamesOfFlagsWidenTheColumn", 20, 15, {{"v:bool<abcdef>", "Be loud"}}, "-v        Be loud  \n"},
    HelpCase{"LineFeedInTheDescription", 20, 15, {{"a", "one\ntwo three four"}},
        "-a one             \n"
        "   two three four  \n"},
    HelpCase{"BlankLineEndsTheEntry", 20, 15, {{"a", "one\n\ntwo three four five"}, {"c", " "}},
        "-a one             \n"
        "-c                 \n"},
    HelpCase{"BlankLineBesideTheNameIsKept", 14, 6, {{"abc<de>", "a\n\nb"}},
        "-abc  a      \n"
        "   de        \n"
        "      b      \n"},
    HelpCase{"NoNameColumn", 5, 0, {{"a", "abcd"}}, "-abc \n   ad   \n"},
    HelpCase{"NoDescriptionColumn", 4, 3, {{"abc", "xy"}}, "-a x\n   by\n   c\n"},
    HelpCase{"WidthsThatNoProviderAccepts", 0, 9, {{"a", "xy"}}, "-a x\n   y\n"},
    HelpCase{"OnlyHidden", 80, 30, {{"h~", "d"}}, ""}),
    Label());

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
