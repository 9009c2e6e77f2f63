#include "registry/xml/xerces/XercesDocument.h"
#include "registry/xml/Readers.h"
#include "registry/xml/XmlScope.h"
#include "registry/xml/xerces/XercesLibraryInit.h"
#include "registry/xml/xerces/XmlText.h"

#include <configuration/ConfigurationException.h>

#include "support/CaseFile.h"
#include "support/Exceptions.h"
#include "support/Latin1Locale.h"
#include "support/TemporaryInstallation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/sax/SAXParseException.hpp>

#include <clocale>

namespace kivo::test {

using namespace configuration;

namespace {

class XercesDocumentTest : public testing::Test {
protected:
    std::string read(std::string const& content) const {
        return readWithXerces(directory.write("\xC3\xA9%s%n.xml", content));
    }

    XmlScope const scope;
    TemporaryDirectory const directory;
};

TEST_F(XercesDocumentTest, HandsOutWhatItIsAskedFor) {
    struct Handler final : xercesc::HandlerBase {
        void warning(xercesc::SAXParseException const& said) override { text += toLocalText(said.getMessage()) + "."; }
        void fatalError(xercesc::SAXParseException const& said) override { warning(said); }
        std::string text;
    } handler;
    XercesLibraryInit const library;
    auto const file = directory.write("f.xml", "<!DOCTYPE r [<!NOTATION n PUBLIC 'p'><!NOTATION n PUBLIC 'p'>]><r>");
    XercesDocument const toHandler(file.c_str(), &handler);
    EXPECT_THAT(handler.text, testing::StartsWith("notation 'n' has already been declared.input ended before"));
    EXPECT_EQ(toHandler.getErrors().getNumberOfErrors() + toHandler.getWarnings().size(), 0u);

    XercesDocument toLists(file.c_str(), nullptr);
    EXPECT_EQ(toLists.getErrors().getNumberOfErrors() + toLists.getWarnings().size(), 2u);
    toLists.resetErrors();
    toLists.resetWarnings();
    EXPECT_EQ(toLists.getErrors().getNumberOfErrors() + toLists.getWarnings().size(), 0u);

    // It releases a document that it took over, which the address sanitizer sees.
    auto* const made = xercesc::DOMImplementation::getImplementation()->createDocument(nullptr, u"r", nullptr);
    EXPECT_EQ(XercesDocument(made).getDocument(), made);
}

TEST_F(XercesDocumentTest, EncodingsAreReadWithoutLoss) {
    auto const place = ". File: \"" + directory.at("\xC3\xA9%s%n.xml") + "\". Line: 1.";
    checkCases("xml/encodings.txt", [&](FileCase const& row) {
        auto const outcome = read(unescaped(row["file"]));
        return lines({outcome.substr(0, outcome.find(place))});
    });
}

TEST(XmlText, IsUtf8InTheLocaleCAndInUtf8Locales) {
    // One character at each end of each length of UTF-8, and of the range of surrogate pairs.
    constexpr char16_t const* TEXT = u"a\u007F\u0080\u07FF\u0800\uFFFD\U00010000\U0010FFFFz";
    for (char const* locale : {"C.UTF-8", "C"}) {
        ASSERT_TRUE(std::setlocale(LC_ALL, locale)) << locale;
        EXPECT_EQ(toLocalText(TEXT), "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBFz");
        EXPECT_EQ(findConversionProblem(TEXT), "");
    }
    for (char16_t const half : {u'\xD800', u'\xDBFF', u'\xDC00', u'\xDFFF'}) {
        char16_t const text[] = {u'a', half, u'b', 0};
        EXPECT_EQ(findConversionProblem(text).substr(0, 12), "character U+");
        EXPECT_EQ(whatOf<ConfigurationException>([&] { toLocalText(text); }), findConversionProblem(text));
    }
    EXPECT_EQ(toMessageText(u"\xD800z\n\x1B\x7F\u00E9"), "&#xD800;z&#x000A;&#x001B;&#x007F;\xC3\xA9");
}

TEST_F(XercesDocumentTest, ACharacterThatTheLocalCodePageLacksIsAFaultWhereItStands) {
    Latin1Locale const locale;
    std::string const problem = "character U+20AC is not in the local code page \"ISO-8859-1\"";
    EXPECT_EQ(toLocalText(u"\u00E9-\u00FF"), "\xE9-\xFF");
    EXPECT_EQ(findConversionProblem(u"a\u20AC\u0142"), problem);
    EXPECT_EQ(whatOf<ConfigurationException>([] { toLocalText(u"a\u20AC\u0142"); }), problem);
    EXPECT_EQ(toMessageText(u"\u00E9 \u20AC \U0001F600"), "\xE9 &#x20AC; &#x1F600;");
    for (char const* content : {"<r>\n<a b='&#x20AC;'/></r>", "<?xml version='1.1'?>\n<r \xE2\x82\xAC=''/>"}) {
        EXPECT_THAT(read(content), testing::StartsWith("XML ERROR: " + problem + ". File: \""));
        EXPECT_THAT(read(content), testing::HasSubstr("\". Line: 2. Column: "));
    }
    EXPECT_EQ(read("<r a='\xC3\xA9'/>"), "r[a=\xE9 ]()");
}

} // namespace

} // namespace kivo::test
