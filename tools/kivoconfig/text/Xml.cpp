#include "text/Xml.h"

#include "text/Characters.h"

#include <algorithm>
#include <cstdio>

namespace kivoconfig {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr Range FIRST_OF_NAME[] = {{'A', 'Z'},       {'_', '_'},       {'a', 'z'},        {0xc0, 0xd6},
                                   {0xd8, 0xf6},     {0xf8, 0x2ff},    {0x370, 0x37d},    {0x37f, 0x1fff},
                                   {0x200c, 0x200d}, {0x2070, 0x218f}, {0x2c00, 0x2fef},  {0x3001, 0xd7ff},
                                   {0xf900, 0xfdcf}, {0xfdf0, 0xfffc}, {0x10000, 0xeffff}};
constexpr Range REST_OF_NAME[] = {{'-', '.'}, {'0', '9'}, {0xb7, 0xb7}, {0x300, 0x36f}, {0x203f, 0x2040}};

template <std::size_t size>
bool isIn(Range const (&ranges)[size], char32_t character) {
    return std::ranges::any_of(ranges,
                               [=](Range const& range) { return character >= range.first && character <= range.last; });
}

bool isXmlCharacter(char32_t character) {
    return character >= 0x20 ? character != 0xfffe && character != 0xffff
                             : character == '\t' || character == '\n' || character == '\r';
}

void appendReference(std::string& text, char32_t character) {
    char reference[16];
    std::snprintf(reference, sizeof(reference), "&#x%X;", static_cast<unsigned>(character));
    text.append(reference);
}

/// Of hyphens in a row, the first one becomes `lead`, each other one `follow`.
std::string withoutDoubleHyphens(std::string_view text, std::string_view lead, std::string_view follow) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool const isHyphen = text[i] == '-';
        bool const follows = isHyphen && i > 0 && text[i - 1] == '-';
        bool const leads = isHyphen && i + 1 < text.size() && text[i + 1] == '-';
        if (follows) {
            result.append(follow);
        } else if (leads) {
            result.append(lead);
        } else {
            result += text[i];
        }
    }
    return result;
}

} // namespace

bool isXmlName(std::string_view text) {
    bool isName = !text.empty() && text != "xmlns" && isIn(FIRST_OF_NAME, takeCharacter(text));
    while (isName && !text.empty()) {
        auto const character = takeCharacter(text);
        isName = isIn(FIRST_OF_NAME, character) || isIn(REST_OF_NAME, character);
    }
    return isName;
}

bool isXmlText(std::string_view text) {
    bool isText = true;
    while (isText && !text.empty()) {
        isText = isXmlCharacter(takeCharacter(text));
    }
    return isText;
}

std::string xmlEscaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        auto const character = takeCharacter(text);
        switch (character) {
        case '&': result += "&amp;"; break;
        case '<': result += "&lt;"; break;
        case '>': result += "&gt;"; break;
        case '"': result += "&quot;"; break;
        default:
            if (!isXmlCharacter(character)) {
                appendCharacter(result, REPLACEMENT);
            } else if (isControl(character)) {
                appendReference(result, character);
            } else {
                appendCharacter(result, character);
            }
        }
    }
    return result;
}

std::string xmlCommented(std::string_view text) { return withoutDoubleHyphens(text, "-", " -"); }

std::string xmlEscapedInComment(std::string_view text) { return withoutDoubleHyphens(text, "&#45;", "&#45;"); }

} // namespace kivoconfig
