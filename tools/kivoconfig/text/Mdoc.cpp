#include "text/Mdoc.h"

#include "text/Characters.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace kivoconfig {

namespace {

constexpr std::size_t WIDTH = 76;
constexpr std::string_view DELIMITERS = ".,:;)]?!|([";
constexpr std::size_t LONGEST_ESCAPE = std::string_view("\\[u10FFFF]").size();
constexpr std::size_t LONGEST_MACRO = 3; // "Nm", "Brq"

void appendEscaped(std::string& result, char32_t character, char const* hyphen) {
    switch (character) {
    case '\\': result += "\\e"; return;
    case '"': result += "\\(dq"; return;
    case '^': result += "\\(ha"; return;
    case '`': result += "\\(ga"; return;
    case '~': result += "\\(ti"; return;
    case '-': result += hyphen; return;
    default: break;
    }
    if (character < 0x80) {
        result += static_cast<char>(character);
        return;
    }
    char name[16];
    std::snprintf(name, sizeof(name), "\\[u%04X]", static_cast<unsigned>(character));
    result += name;
}

std::string escaped(std::string_view text, char const* hyphen) {
    std::string result;
    while (!text.empty()) {
        appendEscaped(result, takeCharacter(text), hyphen);
    }
    return result;
}

/// Whether a word could be a macro or a delimiter among the arguments of a macro.
bool isRisky(std::string_view word) {
    return word.size() <= LONGEST_MACRO && !(word[0] >= 'a' && word[0] <= 'z') && !(word[0] >= '0' && word[0] <= '9');
}

bool endsSentence(std::string_view word) {
    auto const end = word.find_last_not_of("\"')]");
    return end != std::string_view::npos && std::string_view(".!?").find(word[end]) != std::string_view::npos;
}

/// Takes the next word off a text.
std::string_view takeWord(std::string_view& rest) {
    auto const word = rest.substr(0, rest.find(' '));
    rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    return word;
}

/// Fills lines of text with words. Escapes count, since readers of the page's source see them.
class Lines {
public:
    explicit Lines(std::ostream& out) : mOut(out) {}

    void add(std::string_view word) {
        if (auto const text = escaped(word, "-"); text.size() <= WIDTH) {
            put(text);
            return;
        }
        std::string piece;
        while (!word.empty()) {
            appendEscaped(piece, takeCharacter(word), "-");
            if (piece.size() + LONGEST_ESCAPE > WIDTH || word.empty()) {
                put(std::exchange(piece, {}));
            }
        }
    }

    /// A line is neither a macro nor empty.
    void end() {
        if (!mLine.empty()) {
            bool const looksLikeMacro = mLine.starts_with('.') || mLine.starts_with('\'');
            mOut << (looksLikeMacro ? "\\&" : "") << mLine << '\n';
        }
        mLine.clear();
    }

private:
    void put(std::string const& text) {
        if (mLine.size() + 1 + text.size() > WIDTH) {
            end();
        }
        mLine.append(mLine.empty() ? "" : " ").append(text);
    }

    std::ostream& mOut;
    std::string mLine;
};

} // namespace

std::string mdocArgument(std::string_view text) {
    bool const isQuoted = text.empty() || text.find(' ') != std::string_view::npos;
    char const* const quote = isQuoted ? "\"" : "";
    char const* const before = !isQuoted && isRisky(text) ? "\\&" : "";
    char const* const after = !text.empty() && DELIMITERS.find(text.back()) != std::string_view::npos ? "\\&" : "";
    return quote + (before + escaped(text, "\\-")) + after + quote;
}

std::string takeMdocArguments(std::string_view& text) {
    std::string arguments;
    while (!text.empty() && arguments.size() < WIDTH) {
        arguments.append(arguments.empty() ? "" : " ").append(mdocArgument(takeWord(text)));
    }
    return arguments;
}

void writeMdocText(std::ostream& out, std::string_view text) {
    Lines lines(out);
    while (!text.empty()) {
        auto const word = takeWord(text);
        lines.add(word);
        if (text.empty() || endsSentence(word)) {
            lines.end();
        }
    }
}

} // namespace kivoconfig
