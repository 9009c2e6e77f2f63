#include "kernel/kvProcessInit.h"

#include "registry/xml/PlainXml.h"

#include "registry/xml/LocalCodePage.h"
#include "registry/xml/XmlDocumentBuilder.h"
#include "registry/xml/XmlInput.h"
#include "registry/xml/XmlLimits.h"
#include "schema/NameComparison.h"

#include <expat.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace kivo::configuration {

namespace {

constexpr std::size_t MAX_SIZE = 64 << 20;
constexpr std::size_t MIN_FIRST_PART = 1 << 10;
constexpr std::size_t MAX_FIRST_PART = 64 << 10;
constexpr int MAX_DECLARATION = 1000; // Xerces-C refuses some of 16,384 characters and more

// Why a file is not plain, where that can be seen in several places.
constexpr char const* TOO_LARGE = "it has more than 64 MiB";
constexpr char const* OTHER_ENCODING = "its encoding is neither UTF-8 nor US-ASCII";
constexpr char const* OTHER_NAME = "a name has a colon, or a character beyond ASCII";
constexpr char const* TOO_MUCH = "it has more elements inside each other, attributes or names than are read";

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<signed char>(c) >= 0; });
}

/// Whether the parser would take a text for UTF-16, whatever it is told.
bool isUtf16(std::string_view text) {
    return text.starts_with("\xFE\xFF") || text.starts_with("\xFF\xFE") || text.substr(0, 2).find('\0') != text.npos;
}

bool isPlainName(std::string_view name) { return isAscii(name) && name.find(':') == std::string_view::npos; }

struct GivenAttribute {
    std::string_view name;
    std::string_view value;
    std::uint32_t number;
};

class PlainXmlReader {
public:
    explicit PlainXmlReader(XmlInput& input);

    PlainXml read();

private:
    /// What the parser calls. An exception must not pass through it.
    template <auto HANDLE, class... Arguments>
    static void XMLCALL call(void* reader, Arguments... arguments) noexcept;

    void declare(char const* version, char const* encoding, int standalone);
    void startDocumentType(char const* name, char const* systemId, char const* publicId, int hasInternalSubset);
    void readInstruction(char const* target, char const* data);
    void startElement(char const* name, char const** attributes);
    void endElement(char const* name);

    bool parseAll();
    void collectAttributes(char const** attributes);
    void require(bool isPlain, char const* obstacle);
    bool refuse(char const* obstacle);
    void stop();
    XmlPosition getPosition() const;
    PlainXml describeFault() const;

    struct Free {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };

    XmlInput& mInput;
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free> mParser;
    XmlDocumentBuilder mBuilder;
    XmlLimits mLimits;
    std::vector<GivenAttribute> mAttributes; // of the element that begins
    bool mIsStopped = false;
    char const* mObstacle = ""; // the first one
    XmlPosition mObstaclePosition{};
    bool mIsOutOfMemory = false;
    bool mIsDeclaredAscii = false;
    bool const mAreTextsAscii = !isLocalCodePageUnicode();
};

PlainXmlReader::PlainXmlReader(XmlInput& input)
    : mInput(input), mParser(XML_ParserCreate("UTF-8")) { // whatever the document declares: that is looked at here
    if (!mParser) {
        throw std::bad_alloc();
    }
    XML_SetUserData(mParser.get(), this);
    XML_SetXmlDeclHandler(mParser.get(), call<&PlainXmlReader::declare>);
    XML_SetStartDoctypeDeclHandler(mParser.get(), call<&PlainXmlReader::startDocumentType>);
    XML_SetProcessingInstructionHandler(mParser.get(), call<&PlainXmlReader::readInstruction>);
    XML_SetElementHandler(mParser.get(), call<&PlainXmlReader::startElement>, call<&PlainXmlReader::endElement>);
}

PlainXml PlainXmlReader::read() {
    bool const isPlain = parseAll();
    if (mIsOutOfMemory || XML_GetErrorCode(mParser.get()) == XML_ERROR_NO_MEMORY) {
        throw std::bad_alloc();
    }
    if (isPlain) {
        auto const size = mInput.getKept().size();
        return {mBuilder.finish(mInput.takeKept(), size), {}, {}, {}, {}};
    }
    return describeFault();
}

/// Parts grow, since the parser looks at a tag that is not complete again, from its beginning, with each part.
/// @return whether the whole input is plain
bool PlainXmlReader::parseAll() {
    if (mInput.getExpectedSize() > MAX_SIZE) {
        return refuse(TOO_LARGE);
    }
    auto const whole = mInput.getExpectedSize() + 1; // a part that is not full is the last
    for (auto size = std::clamp(whole, MIN_FIRST_PART, MAX_FIRST_PART);; size = mInput.getKept().size()) {
        auto const part = mInput.readOn(size);
        if (!part) {
            return false;
        }
        if (mInput.getKept().size() > MAX_SIZE || isUtf16(mInput.getKept())) {
            return refuse(isUtf16(mInput.getKept()) ? OTHER_ENCODING : TOO_LARGE);
        }
        bool const isLast = part->size() < size;
        if (XML_Parse(mParser.get(), part->data(), static_cast<int>(part->size()), isLast) != XML_STATUS_OK) {
            return false;
        }
        if (mIsDeclaredAscii && !isAscii(mInput.getKept())) {
            return refuse("it is declared as US-ASCII, and has other characters");
        }
        if (isLast) {
            return true;
        }
    }
}

template <auto HANDLE, class... Arguments>
void PlainXmlReader::call(void* reader, Arguments... arguments) noexcept {
    auto& self = *static_cast<PlainXmlReader*>(reader);
    if (self.mIsStopped) { // a call or two can follow
        return;
    }
    try {
        (self.*HANDLE)(arguments...);
    } catch (std::bad_alloc const&) {
        self.mIsOutOfMemory = true;
        self.stop();
    }
}

void PlainXmlReader::declare(char const* version, char const* encoding, int) {
    require(std::strcmp(version, "1.0") == 0, "its version of XML is not 1.0");
    require(XML_GetCurrentByteCount(mParser.get()) <= MAX_DECLARATION, "its XML declaration is too long");
    mIsDeclaredAscii = encoding && equalIgnoringCase(encoding, "US-ASCII");
    require(!encoding || mIsDeclaredAscii || equalIgnoringCase(encoding, "UTF-8"), OTHER_ENCODING);
}

void PlainXmlReader::startDocumentType(char const*, char const*, char const*, int) {
    require(false, "it has a document type");
}

void PlainXmlReader::readInstruction(char const* target, char const*) { require(isPlainName(target), OTHER_NAME); }

void PlainXmlReader::startElement(char const* name, char const** attributes) {
    collectAttributes(attributes);
    require(mBuilder.getDepth() < XmlLimits::MAX_DEPTH && mLimits.countAttributes(mAttributes.size()), TOO_MUCH);
    if (mIsStopped) {
        return;
    }
    auto const knownNames = mBuilder.getNumberOfNames();
    auto const place = XML_GetCurrentByteIndex(mParser.get());
    mBuilder.startElement(name, static_cast<std::size_t>(place), mAttributes.size());
    for (auto const& [attribute, value, number] : mAttributes) {
        mBuilder.addAttribute(attribute, value, number);
    }
    if (mBuilder.getNumberOfNames() > knownNames) { // known ones have been looked at
        require(mBuilder.getNumberOfNames() <= XmlLimits::MAX_NAMES, TOO_MUCH);
        require(isPlainName(name) && std::ranges::all_of(mAttributes, isPlainName, &GivenAttribute::name), OTHER_NAME);
    }
}

void PlainXmlReader::endElement(char const*) { mBuilder.endElement(); }

void PlainXmlReader::collectAttributes(char const** attributes) {
    mAttributes.clear();
    for (; *attributes && !mIsStopped; attributes += 2) {
        auto const number = static_cast<std::uint32_t>(mAttributes.size());
        auto const& [name, value, _] = mAttributes.emplace_back(GivenAttribute{attributes[0], attributes[1], number});
        require(!name.starts_with("xmlns"), "it has a namespace");
        require(!mAreTextsAscii || isAscii(value), "a text has a character beyond ASCII, where UTF-8 is not the "
                                                   "locale's character set");
        require(mAttributes.size() <= XmlLimits::MAX_ATTRIBUTES, TOO_MUCH);
    }
    std::ranges::sort(mAttributes, {}, &GivenAttribute::name);
}

/// Ends the reading when something is not plain.
void PlainXmlReader::require(bool isPlain, char const* obstacle) {
    if (!isPlain) {
        refuse(obstacle);
        stop();
    }
}

/// @return false: the input is not plain
bool PlainXmlReader::refuse(char const* obstacle) {
    if (*mObstacle == '\0') {
        mObstacle = obstacle;
        mObstaclePosition = getPosition();
    }
    return false;
}

XmlPosition PlainXmlReader::getPosition() const {
    return {XML_GetCurrentLineNumber(mParser.get()), XML_GetCurrentColumnNumber(mParser.get()) + 1};
}

void PlainXmlReader::stop() {
    mIsStopped = true;
    XML_StopParser(mParser.get(), XML_FALSE);
}

/// What is wrong with an input that is not plain, as far as that is known here.
PlainXml PlainXmlReader::describeFault() const {
    auto const error = XML_GetErrorCode(mParser.get());
    if (mIsStopped || error == XML_ERROR_NONE) {
        return {std::nullopt, mInput.getProblem(), {}, mObstacle, mObstaclePosition};
    }
    return {std::nullopt, XML_ErrorString(error), getPosition(), {}, {}};
}

} // namespace

PlainXml readPlainXml(XmlInput& input) { return PlainXmlReader(input).read(); }

} // namespace kivo::configuration
