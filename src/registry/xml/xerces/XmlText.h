#pragma once

#include <xercesc/util/XercesDefs.hpp>

#include <string>
#include <type_traits>

// Texts of the XML parser, which are UTF-16, in the local code page. Nothing is ever replaced silently.

namespace kivo::configuration {

static_assert(std::is_same_v<XMLCh, char16_t>, "texts of the XML parser are compared with char16_t literals");

/// A text in the local code page.
/// @throws ConfigurationException "character U+<code> is not in the local code page \"<name>\""
std::string toLocalText(XMLCh const* text);

/// As toLocalText() for messages of one line: a character that the local code page cannot hold, or that would break the
/// line, is written as a character reference, such as "&#x20AC;".
std::string toMessageText(XMLCh const* text);

/// What is wrong with a text that toLocalText() would refuse; empty when nothing is.
std::string findConversionProblem(XMLCh const* text);

/// A text of ASCII characters for the parser.
std::u16string toXmlText(std::string const& ascii);

/// Whether a text of the parser is this text of ASCII characters, letter by letter.
inline bool equalsAscii(XMLCh const* text, char const* ascii) noexcept {
    while (*ascii != '\0' && *text == static_cast<XMLCh>(*ascii)) {
        ++text;
        ++ascii;
    }
    return *ascii == '\0' && *text == 0;
}

} // namespace kivo::configuration
