#include "registry/XmlText.h"

#include <configuration/ConfigurationException.h>

#include "registry/Latin1Locale.h"
#include "support/Exceptions.h"

#include <gtest/gtest.h>

#include <clocale>

namespace kivo::test {

using namespace configuration;

namespace {

/// One character at each end of each length of UTF-8, and of the range of surrogate pairs.
constexpr char16_t const* ALL_LENGTHS = u"a\u007F\u0080\u07FF\u0800\uFFFD\U00010000\U0010FFFFz";
constexpr char const* ALL_LENGTHS_UTF8 =
    "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBFz";

TEST(XmlText, IsUtf8InTheLocaleCAndInUtf8Locales) {
    std::string const before = std::setlocale(LC_ALL, nullptr);
    for (char const* locale : {"C", "C.UTF-8"}) {
        ASSERT_TRUE(std::setlocale(LC_ALL, locale)) << locale;
        EXPECT_TRUE(isLocalCodePageUnicode());
        EXPECT_EQ(toLocalText(u""), "");
        EXPECT_EQ(toLocalText(ALL_LENGTHS), ALL_LENGTHS_UTF8);
        EXPECT_EQ(findConversionProblem(ALL_LENGTHS), "");
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST(XmlText, HalfASurrogatePairIsRefused) {
    for (char16_t const half : {u'\xD800', u'\xDBFF', u'\xDC00', u'\xDFFF'}) {
        char16_t const text[] = {u'a', half, u'b', 0};
        auto const problem = findConversionProblem(text);
        EXPECT_EQ(problem.substr(0, 12), "character U+");
        EXPECT_EQ(whatOf<ConfigurationException>([&] { toLocalText(text); }), problem);
    }
    EXPECT_EQ(toMessageText(u"\xD800z"), "&#xD800;z");
}

TEST(XmlText, ACodePageWithoutACharacterIsAProblemAndNeverASubstitute) {
    Latin1Locale const locale;
    ASSERT_TRUE(locale.isActive());
    EXPECT_FALSE(isLocalCodePageUnicode());
    EXPECT_EQ(toLocalText(u"\u00E9a\u00FF"), "\xE9"
                                             "a\xFF");
    constexpr char const* PROBLEM = "character U+20AC is not in the local code page \"ISO-8859-1\"";
    EXPECT_EQ(findConversionProblem(u"a\u20AC\u0142"), PROBLEM);
    EXPECT_EQ(whatOf<ConfigurationException>([] { toLocalText(u"a\u20AC\u0142"); }), PROBLEM);
    EXPECT_EQ(toMessageText(u"\u00E9 \u20AC \U0001F600"), "\xE9 &#x20AC; &#x1F600;");
}

TEST(XmlText, AMessageStaysOneLine) {
    EXPECT_EQ(toMessageText(u"a\n\x1B\x7F\u00E9"), "a&#x000A;&#x001B;&#x007F;\xC3\xA9");
}

TEST(XmlText, ComparesWithAsciiWhole) {
    EXPECT_TRUE(equalsAscii(u"id", "id"));
    for (char16_t const* other : {u"", u"i", u"idx", u"Id", u"i\u0164"}) {
        EXPECT_FALSE(equalsAscii(other, "id"));
    }
    EXPECT_EQ(toXmlText("a1"), u"a1");
}

} // namespace

} // namespace kivo::test
