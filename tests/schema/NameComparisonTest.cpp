#include "schema/NameComparison.h"

#include <cctype>
#include <gtest/gtest.h>
#include <string>

using namespace kivo::configuration;

namespace {

int signOf(int number) { return (number > 0) - (number < 0); }

TEST(NameComparison, OrdersWholeNames) {
    using namespace std::string_view_literals;
    struct Row {
        std::string_view a, b;
        int sign;
    };
    // '_' stands before the small letters and behind the capital ones; capital letters count as small.
    for (auto const& row : {Row{"", "", 0}, Row{"port", "PoRT", 0}, Row{"por", "PORT", -1}, Row{"", "a", -1},
                            Row{"Zebra", "ant", 1}, Row{"a_", "aB", -1}, Row{"\xC3\xA4", "\xC3\x84", 1},
                            Row{"a\xFF", "az", 1}, Row{"a\0b"sv, "a\0C"sv, -1}, Row{"a"sv, "a\0"sv, -1}}) {
        SCOPED_TRACE(std::string(row.a) + " / " + std::string(row.b));
        EXPECT_EQ(signOf(compareIgnoringCase(row.a, row.b)), row.sign);
        EXPECT_EQ(signOf(compareIgnoringCase(row.b, row.a)), -row.sign);
        EXPECT_EQ(equalIgnoringCase(row.a, row.b), row.sign == 0);
        EXPECT_EQ(CaseInsensitiveLess()(row.a, row.b), row.sign < 0);
        EXPECT_EQ(hashIgnoringCase(row.a) == hashIgnoringCase(row.b), row.sign == 0);
    }
    EXPECT_TRUE(beginsIgnoringCase("Port", "pO") && beginsIgnoringCase("p", "") && beginsIgnoringCase("p", "P"));
    EXPECT_FALSE(beginsIgnoringCase("por", "port") || beginsIgnoringCase("port", "o"));
}

// Every pair of bytes, in names of all sizes that are compared and hashed in different ways.
TEST(NameComparison, FoldsEveryByteAsTheCLocaleDoes) {
    for (unsigned a = 0; a < 256; ++a) {
        for (unsigned b = 0; b < 256; ++b) {
            auto const size = 1 + (a * 31 + b) % 20;
            std::string first(size, 'm');
            std::string second(size, 'M');
            first[(a + b / 20) % size] = static_cast<char>(a);
            second[(a + b / 20) % size] = static_cast<char>(b);
            auto const expected = signOf(std::tolower(static_cast<int>(a)) - std::tolower(static_cast<int>(b)));
            ASSERT_EQ(signOf(compareIgnoringCase(first, second)), expected) << a << ' ' << b;
            ASSERT_EQ(equalIgnoringCase(first, second), expected == 0) << a << ' ' << b;
            ASSERT_EQ(hashIgnoringCase(first) == hashIgnoringCase(second), expected == 0) << a << ' ' << b;
        }
    }
}

} // namespace
