#include "text/Characters.h"

#include <algorithm>
#include <cstdio>

namespace kivoconfig {

namespace {

/// The bytes of one character: how many there are, the bits of the first one that count, and the least character that
/// needs so many.
struct Form {
    unsigned char mask;
    unsigned char lead;
    std::size_t size;
    char32_t least;
};

constexpr Form FORMS[] = {{0x80, 0x00, 1, 0}, {0xe0, 0xc0, 2, 0x80}, {0xf0, 0xe0, 3, 0x800}, {0xf8, 0xf0, 4, 0x10000}};

bool isSurrogate(char32_t character) { return character >= 0xd800 && character <= 0xdfff; }

/// The character that a text begins with, if it is one of this form, else REPLACEMENT.
char32_t decode(std::string_view text, Form const& form) {
    auto character = static_cast<char32_t>(static_cast<unsigned char>(text[0]) & ~form.mask & 0xff);
    for (std::size_t i = 1; i < form.size; ++i) {
        if (i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xc0) != 0x80) {
            return REPLACEMENT;
        }
        character = (character << 6) | (static_cast<unsigned char>(text[i]) & 0x3f);
    }
    return character < form.least || character > 0x10ffff || isSurrogate(character) ? REPLACEMENT : character;
}

bool isBetween(char32_t character, char32_t first, char32_t last) { return character >= first && character <= last; }

void appendEscape(std::string& text, char32_t character) {
    static constexpr std::string_view NAMES = "abtnvfr"; // of the characters from 7 on
    if (isBetween(character, 7, 13)) {
        text.append({'\\', NAMES[character - 7]});
        return;
    }
    char escape[16];
    std::snprintf(escape, sizeof(escape), character < 0x80 ? "\\x%02x" : "\\u%04x", static_cast<unsigned>(character));
    text.append(escape);
}

} // namespace

char32_t takeCharacter(std::string_view& rest) {
    auto const first = static_cast<unsigned char>(rest.front());
    auto const* const form =
        std::ranges::find_if(FORMS, [&](Form const& each) { return (first & each.mask) == each.lead; });
    auto const character = form == std::end(FORMS) ? REPLACEMENT : decode(rest, *form);
    bool const isReal = form != std::end(FORMS) && (character != REPLACEMENT || rest.starts_with("\xef\xbf\xbd"));
    rest.remove_prefix(isReal ? form->size : 1);
    return character;
}

void appendCharacter(std::string& text, char32_t character) {
    auto const* const form =
        std::find_if(std::rbegin(FORMS), std::rend(FORMS), [&](Form const& each) { return character >= each.least; })
            .base() -
        1;
    for (std::size_t i = form->size; i-- > 0;) {
        auto const bits = character >> (6 * i);
        text += static_cast<char>(i + 1 == form->size ? form->lead | bits : 0x80 | (bits & 0x3f));
    }
}

std::size_t countCharacters(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) {
        takeCharacter(text);
    }
    return count;
}

bool isControl(char32_t character) {
    return character < 0x20 || isBetween(character, 0x7f, 0x9f) || character == 0x61c ||
           isBetween(character, 0x200e, 0x200f) || isBetween(character, 0x2028, 0x202e) ||
           isBetween(character, 0x2066, 0x2069) || isBetween(character, 0xfffe, 0xffff);
}

std::string printable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        auto const character = takeCharacter(text);
        isControl(character) ? appendEscape(result, character) : appendCharacter(result, character);
    }
    return result;
}

std::string printableLines(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        auto const end = std::min(text.find('\n'), text.size());
        result.append(printable(text.substr(0, end))).append("\n");
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return result;
}

std::string collapsed(std::string_view text) {
    std::string result;
    for (char const c : text) {
        bool const isSpace = std::string_view(" \t\n\r").find(c) != std::string_view::npos;
        if (!isSpace) {
            result += c;
        } else if (!result.empty() && result.back() != ' ') {
            result += ' ';
        }
    }
    return result.substr(0, result.ends_with(' ') ? result.size() - 1 : result.size());
}

std::string folded(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    }
    return result;
}

} // namespace kivoconfig
