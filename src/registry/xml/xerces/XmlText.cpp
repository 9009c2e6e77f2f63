#include "kernel/kvProcessInit.h"

#include "registry/xml/xerces/XmlText.h"

#include <configuration/ConfigurationException.h>

#include "registry/xml/LocalCodePage.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cwchar>

namespace kivo::configuration {

namespace {

constexpr XMLCh FIRST_NON_ASCII = 0x80;

bool isLeadSurrogate(char32_t c) { return c >= 0xD800 && c < 0xDC00; }

bool isTrailSurrogate(char32_t c) { return c >= 0xDC00 && c < 0xE000; }

bool isControl(char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }

/// The character at a position, which moves on. Half a surrogate pair is returned as it is: no code page has it.
char32_t nextCharacter(XMLCh const*& position) {
    char32_t const unit = *position++;
    if (!isLeadSurrogate(unit) || !isTrailSurrogate(*position)) {
        return unit;
    }
    return 0x10000 + ((unit - 0xD800) << 10) + (*position++ - 0xDC00U);
}

bool appendUtf8(std::string& result, char32_t c) {
    if (isLeadSurrogate(c) || isTrailSurrogate(c)) {
        return false;
    }
    auto const append = [&result](char32_t byte) { result.push_back(static_cast<char>(byte)); };
    auto const appendTail = [&](int shift) { append(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        append(c);
    } else if (c < 0x800) {
        append(0xC0 | (c >> 6));
        appendTail(0);
    } else if (c < 0x10000) {
        append(0xE0 | (c >> 12));
        appendTail(6);
        appendTail(0);
    } else {
        append(0xF0 | (c >> 18));
        appendTail(12);
        appendTail(6);
        appendTail(0);
    }
    return true;
}

bool appendLocal(std::string& result, char32_t c) {
    char bytes[MB_LEN_MAX];
    std::mbstate_t state{};
    auto const length = std::wcrtomb(bytes, static_cast<wchar_t>(c), &state);
    if (length == static_cast<std::size_t>(-1)) {
        return false;
    }
    result.append(bytes, length);
    return true;
}

/// Converts a text. `replace` is given the result and each character that the local code page lacks.
template <class Replace>
std::string convert(XMLCh const* text, Replace replace) {
    auto const* position = text;
    while (*position != 0 && *position < FIRST_NON_ASCII) {
        ++position;
    }
    std::string result(static_cast<std::size_t>(position - text), '\0');
    std::transform(text, position, result.begin(), [](XMLCh c) { return static_cast<char>(c); });
    if (*position == 0) {
        return result;
    }
    auto const appendCharacter = isLocalCodePageUnicode() ? appendUtf8 : appendLocal;
    while (*position != 0) {
        if (auto const c = nextCharacter(position); !appendCharacter(result, c)) {
            replace(result, c);
        }
    }
    return result;
}

std::string hexadecimal(char32_t c) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%04X", static_cast<unsigned int>(c));
    return digits;
}

std::string missingCharacter(char32_t c) {
    return "character U+" + hexadecimal(c) + " is not in the local code page \"" + std::string(getLocalCodePageName()) +
           "\"";
}

} // namespace

std::string toLocalText(XMLCh const* text) {
    return convert(
        text, [](std::string const&, char32_t c) { throw ConfigurationException("%s", missingCharacter(c).c_str()); });
}

std::string toMessageText(XMLCh const* text) {
    auto const appendReference = [](std::string& result, char32_t c) { result += "&#x" + hexadecimal(c) + ";"; };
    std::string message;
    for (char const c : convert(text, appendReference)) {
        if (isControl(c)) {
            appendReference(message, static_cast<unsigned char>(c));
        } else {
            message += c;
        }
    }
    return message;
}

std::string findConversionProblem(XMLCh const* text) {
    std::string problem;
    convert(text, [&problem](std::string const&, char32_t c) {
        if (problem.empty()) {
            problem = missingCharacter(c);
        }
    });
    return problem;
}

std::u16string toXmlText(std::string const& ascii) { return {ascii.begin(), ascii.end()}; }

} // namespace kivo::configuration
