#include "kernel/kvProcessInit.h"

#include "text/ColumnText.h"

#include "text/Utf8.h"

#include <cstdio>
#include <utility>

#include <locale.h>
#include <wchar.h>

namespace kivo::configuration {

namespace {

/// Makes this thread count in UTF-8 while it lives. The process's own locale stays as it is.
class Utf8Counting {
public:
    Utf8Counting() : mBefore(uselocale(locale())) {}
    ~Utf8Counting() { uselocale(mBefore); }
    Utf8Counting(Utf8Counting const&) = delete;
    Utf8Counting& operator=(Utf8Counting const&) = delete;

private:
    /// Lives as long as the process. Null where the system does not have it: then nothing is changed.
    static locale_t locale() {
        static locale_t const made = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return made;
    }

    locale_t mBefore;
};

/// @pre an Utf8Counting lives
std::size_t columnsOfCharacter(std::string_view character) {
    auto const size = character.size();
    int const columns = size == 1 ? 1 : wcwidth(static_cast<wchar_t>(characterOf(character)));
    return columns < 0 ? 1 : static_cast<std::size_t>(columns);
}

std::string_view takeCharacter(std::string_view& rest) {
    auto const character = rest.substr(0, sizeOfCharacter(rest));
    rest.remove_prefix(character.size());
    return character;
}

/// Takes as many characters off a word as a line has room for; at least one.
std::string_view takeColumns(std::string_view& rest, std::size_t width) {
    auto const word = rest;
    for (std::size_t columns = 0; !rest.empty();) {
        auto after = rest;
        columns += columnsOfCharacter(takeCharacter(after));
        if (columns > width && rest.size() != word.size()) {
            break;
        }
        rest = after;
    }
    return word.substr(0, word.size() - rest.size());
}

/// A character, or the escape for it.
void appendShown(std::string& text, std::string_view character) {
    constexpr std::string_view NAMES = "tnvfr"; // of the characters from the tab on
    auto const code = characterOf(character);
    if (!isControl(code)) {
        text.append(character);
    } else if (code >= '\t' && code <= '\r') {
        text.append("\\").append(1, NAMES[code - '\t']);
    } else {
        char escape[16];
        std::snprintf(escape, sizeof escape, character.size() == 1 ? "\\x%02x" : "\\u%04x",
                      static_cast<unsigned>(code));
        text.append(escape);
    }
}

} // namespace

std::size_t columnsOf(std::string_view text) {
    Utf8Counting const counting;
    std::size_t columns = 0;
    while (!text.empty()) {
        columns += columnsOfCharacter(takeCharacter(text));
    }
    return columns;
}

std::string escapeControls(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        appendShown(shown, takeCharacter(text));
    }
    return shown;
}

std::string toOneLine(std::string_view text) {
    constexpr std::string_view WHITE_SPACE = " \t\n\v\f\r";
    std::string line;
    while (!text.empty()) {
        auto const character = takeCharacter(text);
        if (WHITE_SPACE.find(character) == std::string_view::npos) {
            appendShown(line, character);
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    if (line.ends_with(' ')) {
        line.pop_back();
    }
    return line;
}

std::vector<std::string> wrapWords(std::string_view text, std::size_t width) {
    Utf8Counting const counting;
    std::vector<std::string> lines;
    std::size_t used = 0; // of the last line
    while (!text.empty()) {
        auto word = text.substr(0, text.find(' '));
        text.remove_prefix(word.size() + (word.size() < text.size() ? 1 : 0));
        if (auto const columns = columnsOf(word); !lines.empty() && columns < width && used < width - columns) {
            lines.back().append(" ").append(word);
            used += 1 + columns;
            continue;
        }
        while (!word.empty()) {
            used = columnsOf(lines.emplace_back(takeColumns(word, width)));
        }
    }
    return lines;
}

} // namespace kivo::configuration
