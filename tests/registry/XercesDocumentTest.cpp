#include "registry/XercesDocument.h"
#include "registry/XercesLibraryInit.h"
#include "registry/XmlText.h"

#include "registry/Latin1Locale.h"
#include "support/TemporaryInstallation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/XMLString.hpp>

namespace kivo::test {

using namespace configuration;
using testing::ElementsAre;

namespace {

std::vector<std::string> errorsOf(XercesDocument const& document) {
    std::vector<std::string> errors;
    for (unsigned long i = 0; i < document.getErrors().getNumberOfErrors(); ++i) {
        errors.emplace_back(document.getErrors().getError(i));
    }
    return errors;
}

/// An element and all below it, such as "r[a=1](b() c())".
std::string toText(xercesc::DOMNode const& node) {
    auto text = toLocalText(node.getNodeName());
    auto const* const attributes = node.getAttributes();
    for (XMLSize_t i = 0; attributes && i < attributes->getLength(); ++i) {
        auto const* const attribute = attributes->item(i);
        text += (i == 0 ? "[" : " ") + toLocalText(attribute->getNodeName()) + "=" +
                toLocalText(attribute->getNodeValue()) + (i + 1 == attributes->getLength() ? "]" : "");
    }
    text += "(";
    for (auto const* child = node.getFirstChild(); child; child = child->getNextSibling()) {
        text += (child == node.getFirstChild() ? "" : " ") + toText(*child);
    }
    return text + ")";
}

class XercesDocumentTest : public testing::Test {
protected:
    XercesLibraryInit const library;
    TemporaryDirectory const directory;
};

TEST_F(XercesDocumentTest, KeepsElementsAndAttributesOnly) {
    auto const file =
        directory.write("f.xml", "<?xml version='1.0'?><!-- c --><r b='2' a='1 &lt;&#233;'> t <?p i?><x>u</x>"
                                 "<![CDATA[ c ]]><n:y xmlns:n='u' n:z=''/></r>");
    XercesDocument const document(file.c_str(), nullptr);
    EXPECT_EQ(toText(*document.getDocument()->getDocumentElement()), "r[a=1 <\xC3\xA9 b=2](x() n:y[n:z= xmlns:n=u]())");
    EXPECT_THAT(errorsOf(document), ElementsAre());
    EXPECT_THAT(document.getWarnings(), ElementsAre());
}

TEST_F(XercesDocumentTest, AFaultIsOneLineWithFileLineAndColumn) {
    auto const file = directory.write("%s%n.xml", "<r>\n <%s%n/></r>");
    XercesDocument document(file.c_str(), nullptr);
    EXPECT_THAT(errorsOf(document),
                ElementsAre("XML ERROR: element name expected. File: \"" + file + "\". Line: 2. Column: 3."));
    EXPECT_THAT(document.getWarnings(), ElementsAre());
    document.resetErrors();
    EXPECT_THAT(errorsOf(document), ElementsAre());
}

TEST_F(XercesDocumentTest, AWarningLeavesTheDocumentWhole) {
    auto const file = directory.write("f.xml", "<!DOCTYPE r [<!ATTLIST r a CDATA 'd' a CDATA 'e'>\n"
                                               "<!NOTATION n PUBLIC 'p'><!NOTATION n PUBLIC 'p'>]><r/>");
    XercesDocument document(file.c_str(), nullptr);
    EXPECT_THAT(document.getWarnings(),
                ElementsAre("XML WARNING: attribute 'a' has already been declared for element 'r'. File: \"" + file +
                                "\". Line: 1. Column: 39.",
                            "XML WARNING: notation 'n' has already been declared. File: \"" + file +
                                "\". Line: 2. Column: 48."));
    EXPECT_THAT(errorsOf(document), ElementsAre());
    EXPECT_EQ(toText(*document.getDocument()->getDocumentElement()), "r[a=d]()");
    document.resetWarnings();
    EXPECT_THAT(document.getWarnings(), ElementsAre());
}

/// Counts, and keeps the last text.
class Handler final : public xercesc::ErrorHandler {
public:
    void warning(xercesc::SAXParseException const&) override { ++warnings; }
    void error(xercesc::SAXParseException const&) override { ++errors; }
    void fatalError(xercesc::SAXParseException const& exception) override {
        ++errors;
        lastText = toLocalText(exception.getMessage());
    }
    void resetErrors() override {}

    int warnings = 0;
    int errors = 0;
    std::string lastText;
};

TEST_F(XercesDocumentTest, AnotherHandlerGetsAllThatTheParserSays) {
    Handler handler;
    auto const file = directory.write("f.xml", "<!DOCTYPE r [<!NOTATION n PUBLIC 'p'><!NOTATION n PUBLIC 'p'>]><r>");
    XercesDocument const faulty(file.c_str(), &handler);
    EXPECT_EQ(handler.warnings, 1);
    EXPECT_EQ(handler.errors, 1);
    XercesDocument const missing(directory.at("none").c_str(), &handler);
    EXPECT_EQ(handler.errors, 2);
    EXPECT_EQ(handler.lastText, "the file does not exist");
    EXPECT_THAT(errorsOf(faulty), ElementsAre());
    EXPECT_THAT(faulty.getWarnings(), ElementsAre());
    EXPECT_THAT(errorsOf(missing), ElementsAre());
}

/// Tells when a document releases it.
class ReleaseCounter final : public xercesc::DOMUserDataHandler {
public:
    void handle(DOMOperationType operation, XMLCh const*, void*, xercesc::DOMNode const*, xercesc::DOMNode*) override {
        releases += operation == NODE_DELETED ? 1 : 0;
    }

    int releases = 0;
};

TEST_F(XercesDocumentTest, ReleasesTheDocumentThatItTookOverOnce) {
    ReleaseCounter counter;
    auto* const made = xercesc::DOMImplementation::getImplementation()->createDocument(nullptr, u"r", nullptr);
    made->setUserData(u"k", &counter, &counter);
    {
        XercesDocument const document(made);
        EXPECT_EQ(document.getDocument(), made);
        EXPECT_THAT(errorsOf(document), ElementsAre());
    }
    EXPECT_EQ(counter.releases, 1);
    EXPECT_EQ(XercesDocument(nullptr).getDocument(), nullptr);
}

struct EncodingCase {
    char const* label;
    std::string content;
    std::string text; ///< the document, or the fault's text
};

class Encodings : public XercesDocumentTest, public testing::WithParamInterface<EncodingCase> {};

TEST_P(Encodings, AreReadWithoutLoss) {
    auto const file = directory.write("\xC3\xA9.xml", GetParam().content);
    XercesDocument const document(file.c_str(), nullptr);
    auto const errors = errorsOf(document);
    EXPECT_EQ(errors.empty() ? toText(*document.getDocument()->getDocumentElement())
                             : errors[0].substr(0, errors[0].find(". File: \"" + file + "\". Line: 1.")),
              GetParam().text);
}

std::string utf16(std::u16string const& text, bool bigEndian) {
    std::string bytes;
    for (char16_t const unit : text) {
        char const pair[] = {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
        bytes += {pair[bigEndian ? 0 : 1], pair[bigEndian ? 1 : 0]};
    }
    return bytes;
}

constexpr char const* NON_ASCII = "\xC3\xA9[\xC3\xBC=\xE2\x82\xAC\xF0\x9F\x98\x80]()";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Read, Encodings, testing::Values(
    EncodingCase{"Utf8", "<\xC3\xA9 \xC3\xBC='\xE2\x82\xAC\xF0\x9F\x98\x80'/>", NON_ASCII},
    EncodingCase{"Utf8WithMark", "\xEF\xBB\xBF<\xC3\xA9 \xC3\xBC='&#x20AC;&#128512;'/>", NON_ASCII},
    EncodingCase{"Utf16Little", utf16(u"\uFEFF<\u00E9 \u00FC='\u20AC\U0001F600'/>", false), NON_ASCII},
    EncodingCase{"Utf16Big", utf16(u"\uFEFF<?xml version='1.0' encoding='UTF-16'?><\u00E9 \u00FC='\u20AC\U0001F600'/>", true), NON_ASCII},
    EncodingCase{"Latin1", "<?xml version='1.1' encoding='ISO-8859-1'?><\xE9 \xFC='&#x20AC;&#x1F600;'/>", NON_ASCII}),
    [](auto const& row) { return std::string(row.param.label); });

INSTANTIATE_TEST_SUITE_P(Refused, Encodings, testing::Values(
    EncodingCase{"InvalidUtf8", "<r a='\xE9'/>", "XML ERROR: invalid byte ''' at position 2 of a 3-byte sequence"},
    EncodingCase{"InvalidUtf8AtTheLineEnd", "<r a='\xE9\n'/>", "XML ERROR: invalid byte '&#x000A;' at position 2 of a 3-byte sequence"},
    EncodingCase{"HalfAPair", utf16(u"\uFEFF<r a='\xD800'/>", false), "XML ERROR: leading surrogate character is not followed by a legal second character"},
    EncodingCase{"Unknown", "<?xml version='1.0' encoding='none'?><r/>", "XML ERROR: unable to create converter for 'NONE' encoding"},
    EncodingCase{"Version", "<?xml version='1.7'?><r/>", "XML ERROR: the XML version '1.7' is unknown"}),
    [](auto const& row) { return std::string(row.param.label); });
// clang-format on

TEST_F(XercesDocumentTest, ACharacterThatTheLocalCodePageLacksIsAFaultWhereItStands) {
    Latin1Locale const locale;
    ASSERT_TRUE(locale.isActive());
    for (std::string const content :
         {"<r>\n<a b='&#x20AC;'/></r>", "<r>\n<a \xC5\x82='1111'/></r>", "<r>\n<\xC5\x82 a='1111'/></r>",
          "<r xmlns:\xC5\x82='1111'>\n<\xC5\x82:a/></r>"}) {
        auto const file = directory.write("f.xml", content);
        XercesDocument const document(file.c_str(), nullptr);
        auto const errors = errorsOf(document);
        ASSERT_EQ(errors.size(), 1u) << content;
        EXPECT_THAT(errors[0], testing::MatchesRegex("XML ERROR: character U.(20AC|0142) is not in the local code page "
                                                     "\"ISO-8859-1\"\\. File: \".*/f.xml\"\\. Line: .\\. Column: .*"));
    }
    auto const file = directory.write("f.xml", "<r a='\xC3\xA9'/>");
    EXPECT_EQ(toText(*XercesDocument(file.c_str(), nullptr).getDocument()->getDocumentElement()), "r[a=\xE9]()");
}

} // namespace

} // namespace kivo::test
