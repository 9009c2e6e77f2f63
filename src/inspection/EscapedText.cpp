#include "kernel/kvProcessInit.h"

#include "inspection/EscapedText.h"

#include "text/Utf8.h"

#include <algorithm>
#include <cstdio>

namespace kivo::configuration {

namespace {

/// Most bytes: they stand for themselves, whatever is around them.
bool isPlain(char byte) { return byte >= ' ' && byte < 0x7F && byte != '\\'; }

void appendEscaped(std::string& escaped, char byte) {
    switch (byte) {
    case '\\': escaped.append("\\\\"); return;
    case '\n': escaped.append("\\n"); return;
    case '\r': escaped.append("\\r"); return;
    case '\t': escaped.append("\\t"); return;
    default: break;
    }
    char code[5];
    static_cast<void>(
        std::snprintf(code, sizeof code, "\\x%02x", static_cast<unsigned>(static_cast<unsigned char>(byte))));
    escaped.append(code);
}

} // namespace

std::string escape(std::string_view text) {
    std::string escaped;
    while (!text.empty()) {
        auto const plain = std::ranges::find_if_not(text, isPlain) - text.begin();
        escaped.append(text.substr(0, static_cast<std::size_t>(plain)));
        text.remove_prefix(static_cast<std::size_t>(plain));
        if (text.empty()) {
            break;
        }
        auto const character = text.substr(0, sizeOfCharacter(text));
        if (character == "\\" || isControl(characterOf(character))) {
            std::ranges::for_each(character, [&](char byte) { appendEscaped(escaped, byte); });
        } else {
            escaped.append(character);
        }
        text.remove_prefix(character.size());
    }
    return escaped;
}

} // namespace kivo::configuration
