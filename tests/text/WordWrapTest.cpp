#include "text/WordWrap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <sstream>

namespace {

using kivo::configuration::wordWrap;

std::string wrapped(std::string_view text, unsigned long start, unsigned long width, unsigned long indent) {
    std::ostringstream output;
    wordWrap(output, text, start, width, indent, " /\\");
    return output.str();
}

struct WrapCase {
    char const* label;
    char const* text;
    unsigned long start, width, indent;
    char const* lines;
};

class WordWrap : public testing::TestWithParam<WrapCase> {};

TEST_P(WordWrap, BreaksLines) {
    auto const& row = GetParam();
    EXPECT_EQ(wrapped(row.text, row.start, row.width, row.indent), row.lines);
}

INSTANTIATE_TEST_SUITE_P(
    Text, WordWrap,
    testing::Values(WrapCase{"Empty", "", 0, 4, 2, "\n"}, //
                    WrapCase{"FitsExactly", "abcd", 0, 4, 2, "abcd\n"},
                    WrapCase{"Unlimited", "a b/c\nd", 0, ULONG_MAX, 3, "a b/c\nd\n"},

                    WrapCase{"LastBreakInReach", "aa bb cc", 0, 6, 0, "aa bb\ncc\n"},
                    WrapCase{"BreakAtTheWidth", "aa bb cc", 0, 5, 0, "aa bb\ncc\n"},
                    WrapCase{"OneSpaceIsDropped", "ab   cd", 0, 3, 0, "ab \n cd\n"},
                    WrapCase{"SpaceAtTheEnd", "abcd ", 0, 4, 2, "abcd\n  \n"},
                    WrapCase{"TabIsNoBreakButDropped", "abcd\tef g", 0, 4, 0, "abcd\nef g\n"},
                    // The second line begins with a slash, which cannot end it.
                    WrapCase{"SlashBeginsTheNextLine", "/usr/local/lib", 0, 7, 2, "/usr\n  /loca\n  l/lib\n"},
                    WrapCase{"BackslashBeginsTheNextLine", "C:\\a\\bc", 0, 4, 0, "C:\\a\n\\bc\n"},

                    WrapCase{"LongWord", "abcdefghij", 0, 4, 1, "abcd\n efg\n hij\n"},
                    WrapCase{"LongWordBehindASpace", "a bcdefghijk", 0, 4, 0, "a\nbcde\nfghi\njk\n"},
                    // Without a break so far, the width counts from the beginning of the text.
                    WrapCase{"LongWordBehindALineFeed", "ab\ncdefghijkl", 0, 6, 0, "ab\ncde\nfghijk\nl\n"},
                    WrapCase{"LongWordBehindSpaceAndLineFeed", "a b\ncdefghijkl", 0, 6, 0, "a b\ncdefgh\nijkl\n"},

                    WrapCase{"LineFeedThatFits", "a\nb c", 0, 5, 2, "a\nb c\n"},
                    WrapCase{"LineFeedBeforeASpace", "a\nb cd", 0, 5, 2, "a\n  b\n  cd\n"},
                    WrapCase{"LineFeedAtTheWidth", "ab d\nef", 0, 4, 0, "ab d\nef\n"},
                    WrapCase{"LineFeedBeyondTheWidth", "ab cd\nefgh", 0, 4, 0, "ab\ncd\nefgh\n"},
                    // A line cannot end where it begins: it goes on over the second line feed.
                    WrapCase{"BlankLine", "one\n\ntwo three four five", 0, 15, 2, "one\n  \ntwo three fo\n  ur five\n"},
                    WrapCase{"CarriageReturnAndLineFeed", "ab\r\ncdef", 0, 4, 0, "ab\n\ncde\nf\n"},

                    WrapCase{"StartShortensEveryLine", "abcdefgh", 2, 6, 1, "abcd\n   efg\n   h\n"},
                    WrapCase{"NoWidth", "abc", 0, 0, 0, "a\nb\nc\n"},
                    WrapCase{"StartBeyondTheWidth", "ab", 3, 2, 0, "a\n   b\n"},
                    WrapCase{"IndentBeyondTheWidth", "abcd", 0, 2, 3, "ab\n   c\n   d\n"}),
    [](auto const& row) { return std::string(row.param.label); });

// Looking through the rest of the text for every line would take minutes here.
TEST(WordWrapOfALongText, LosesNothingInLinearTime) {
    std::string const word(1 << 20, 'x');
    std::string joined = wrapped(word, 0, 4, 0);
    EXPECT_EQ(std::count(joined.begin(), joined.end(), '\n'), 1 << 18);
    std::erase(joined, '\n');
    EXPECT_EQ(joined, word);

    std::string behindASpace = " " + word;
    EXPECT_EQ(wrapped(behindASpace, 0, 1, 0).size(), 2 * word.size() + 1 + 1);
}

} // namespace
