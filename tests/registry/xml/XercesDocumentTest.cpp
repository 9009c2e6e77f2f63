#include "registry/xml/xerces/XercesDocument.h"
#include "registry/xml/xerces/XercesLibraryInit.h"
#include "registry/xml/xerces/XmlText.h"

#include <configuration/ConfigurationException.h>

#include "support/Exceptions.h"
#include "support/TemporaryInstallation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/sax/SAXParseException.hpp>

#include <clocale>
#include <cstdlib>

namespace kivo::test {

using namespace configuration;
using testing::ElementsAre;

namespace {

/// An element and all below it, such as "r[a=1 b=2 ](b[]() c[]())".
std::string toText(xercesc::DOMNode const& node) {
    auto text = toLocalText(node.getNodeName()) + "[";
    for (XMLSize_t i = 0; node.getAttributes() && i < node.getAttributes()->getLength(); ++i) {
        auto const* const attribute = node.getAttributes()->item(i);
        text += toLocalText(attribute->getNodeName()) + "=" + toLocalText(attribute->getNodeValue()) + " ";
    }
    text += "](";
    for (auto const* child = node.getFirstChild(); child; child = child->getNextSibling()) {
        text += toText(*child);
    }
    return text + ")";
}

class XercesDocumentTest : public testing::Test {
protected:
    /// A file's document, or its faults.
    std::string read(std::string const& content) const {
        XercesDocument const document(directory.write("\xC3\xA9%s%n.xml", content).c_str(), nullptr);
        EXPECT_THAT(document.getWarnings(), ElementsAre());
        return document.getErrors().getNumberOfErrors() > 0 ? composeMessage(document.getErrors())
                                                            : toText(*document.getDocument()->getDocumentElement());
    }

    XercesLibraryInit const library;
    TemporaryDirectory const directory;
};

TEST_F(XercesDocumentTest, KeepsElementsAndAttributesOnly) {
    EXPECT_EQ(read("<?xml version='1.0'?><!-- c --><r b='2' a='1 &lt;&#233;'> t <!-- d --><?p i?><x>u</x>"
                   "<![CDATA[ c ]]><n:y xmlns:n='u' n:z=''/></r>"),
              "r[a=1 <\xC3\xA9 b=2 ](x[]()n:y[n:z= xmlns:n=u ]())");
}

TEST_F(XercesDocumentTest, AWarningLeavesTheDocumentWhole) {
    auto const file = directory.write("f.xml", "<!DOCTYPE r [<!ATTLIST r a CDATA 'd' a CDATA 'e'>]><r/>");
    XercesDocument document(file.c_str(), nullptr);
    EXPECT_THAT(document.getWarnings(),
                ElementsAre("XML WARNING: attribute 'a' has already been declared for element 'r'. File: \"" + file +
                            "\". Line: 1. Column: 39."));
    EXPECT_EQ(document.getErrors().getNumberOfErrors(), 0u);
    EXPECT_EQ(toText(*document.getDocument()->getDocumentElement()), "r[a=d ]()");
    document.resetWarnings();
    EXPECT_THAT(document.getWarnings(), ElementsAre());
}

TEST_F(XercesDocumentTest, AnotherHandlerGetsAllThatTheParserSays) {
    struct Handler final : xercesc::HandlerBase {
        void warning(xercesc::SAXParseException const& said) override { text += toLocalText(said.getMessage()) + "."; }
        void fatalError(xercesc::SAXParseException const& said) override { warning(said); }
        std::string text;
    } handler;
    auto const file = directory.write("f.xml", "<!DOCTYPE r [<!NOTATION n PUBLIC 'p'><!NOTATION n PUBLIC 'p'>]><r>");
    XercesDocument const document(file.c_str(), &handler);
    EXPECT_THAT(handler.text, testing::StartsWith("notation 'n' has already been declared.input ended before"));
    EXPECT_EQ(document.getErrors().getNumberOfErrors() + document.getWarnings().size(), 0u);
}

TEST_F(XercesDocumentTest, ReleasesTheDocumentThatItTookOver) { // which the address sanitizer sees
    auto* const made = xercesc::DOMImplementation::getImplementation()->createDocument(nullptr, u"r", nullptr);
    EXPECT_EQ(XercesDocument(made).getDocument(), made);
    EXPECT_EQ(XercesDocument(nullptr).getDocument(), nullptr);
}

std::string utf16(std::u16string const& text, bool isBigEndian) {
    std::string bytes;
    for (char16_t const unit : text) {
        char const pair[] = {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
        bytes += {pair[isBigEndian ? 0 : 1], pair[isBigEndian ? 1 : 0]};
    }
    return bytes;
}

TEST_F(XercesDocumentTest, EncodingsAreReadWithoutLoss) {
    for (auto const& content :
         {std::string("<\xC3\xA9 \xC3\xBC='\xE2\x82\xAC\xF0\x9F\x98\x80'/>"),
          std::string("\xEF\xBB\xBF<\xC3\xA9 \xC3\xBC='&#x20AC;&#128512;'/>"),
          std::string("<?xml version='1.1' encoding='ISO-8859-1'?><\xE9 \xFC='&#x20AC;&#x1F600;'/>"),
          utf16(u"\uFEFF<\u00E9 \u00FC='\u20AC\U0001F600'/>", false),
          utf16(u"\uFEFF<?xml version='1.0' encoding='UTF-16'?><\u00E9 \u00FC='\u20AC\U0001F600'/>", true)}) {
        EXPECT_EQ(read(content), "\xC3\xA9[\xC3\xBC=\xE2\x82\xAC\xF0\x9F\x98\x80 ]()");
    }
    for (auto const& [content, fault] :
         {std::pair<std::string, std::string>("<r a='\xE9'/>", "invalid byte ''' at position 2 of a 3-byte sequence"),
          {"<r a='\xE9\n'/>", "invalid byte '&#x000A;' at position 2 of a 3-byte sequence"},
          {utf16(u"\uFEFF<r a='\xD800'/>", false),
           "leading surrogate character is not followed by a legal second character"},
          {"<?xml version='1.0' encoding='none'?><r/>", "unable to create converter for 'NONE' encoding"},
          {"<?xml version='1.7'?><r/>", "the XML version '1.7' is unknown"}}) {
        EXPECT_THAT(read(content), testing::StartsWith("XML ERROR: " + fault + ". File: \"" +
                                                       directory.at("\xC3\xA9%s%n.xml") + "\". Line: 1."));
    }
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

/// A process locale whose code page has 256 characters: it is compiled, since few machines have one.
class Latin1Locale {
public:
    Latin1Locale() {
        mDirectory.write("characters", "<code_set_name> ISO-8859-1\n<escape_char> /\nCHARMAP\n"
                                       "<U0000>..<U00FF> /x00 all\nEND CHARMAP\n");
        mDirectory.write("source", "escape_char /\nLC_CTYPE\nupper <U0041>\nlower <U0061>\nEND LC_CTYPE\n");
        // The missing categories make it complain, but not fail.
        auto const command =
            "cd " + mDirectory.at("") + " && localedef -c -f characters -i source ./latin1 2>/dev/null";
        [[maybe_unused]] int const status = std::system(command.c_str());
        EXPECT_TRUE(std::setlocale(LC_ALL, "latin1"));
    }
    ~Latin1Locale() { std::setlocale(LC_ALL, "C"); }

private:
    TemporaryDirectory mDirectory;
    ScopedEnvironment mSearchPath{"LOCPATH", mDirectory.at("")};
};

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
