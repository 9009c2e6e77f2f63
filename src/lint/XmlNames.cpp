#include "kernel/kvProcessInit.h"

#include "lint/XmlNames.h"

#include "registry/xml/LocalCodePage.h"

#include <expat.h>

#include <algorithm>
#include <memory>
#include <new>
#include <string>

namespace kivo::configuration {

namespace {

bool isAscii(char c) { return static_cast<signed char>(c) >= 0; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool isAsciiOfName(char c) { return isLetter(c) || (c >= '0' && c <= '9') || c == '-' || c == '.'; }

/// Which characters beyond ASCII names may have is a long story, which the parser knows.
bool isParsed(std::string_view name) {
    struct Free {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free> const parser(
        XML_ParserCreate(isLocalCodePageUnicode() ? "UTF-8" : "ISO-8859-1")); // nearly, for other code pages
    if (!parser) {
        throw std::bad_alloc();
    }
    auto const document = "<" + std::string(name) + "/>";
    auto const status = XML_Parse(parser.get(), document.data(), static_cast<int>(document.size()), XML_TRUE);
    if (XML_GetErrorCode(parser.get()) == XML_ERROR_NO_MEMORY) {
        throw std::bad_alloc();
    }
    return status == XML_STATUS_OK;
}

} // namespace

bool isXmlName(std::string_view text) {
    bool const isPlausible = !text.empty() && (isLetter(text.front()) || !isAscii(text.front())) &&
                             std::ranges::all_of(text, [](char c) { return isAsciiOfName(c) || !isAscii(c); });
    return isPlausible && (std::ranges::all_of(text, isAscii) || isParsed(text));
}

} // namespace kivo::configuration
