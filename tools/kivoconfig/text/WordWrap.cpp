#include "text/WordWrap.h"

#include "text/Characters.h"

namespace kivoconfig {

namespace {

/// Takes so many characters off a text, or what there is.
std::string_view takeCharacters(std::string_view& rest, std::size_t count) {
    auto const text = rest;
    while (count-- > 0 && !rest.empty()) {
        takeCharacter(rest);
    }
    return text.substr(0, text.size() - rest.size());
}

} // namespace

std::vector<std::string> wrapWords(std::string_view text, std::size_t width) {
    std::vector<std::string> lines;
    std::size_t used = width; // of the last line
    while (!text.empty()) {
        auto word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        if (auto const size = countCharacters(word); !word.empty() && used + 1 + size <= width) {
            lines.back().append(" ").append(word);
            used += 1 + size;
            continue;
        }
        while (!word.empty()) {
            auto const& line = lines.emplace_back(takeCharacters(word, width));
            used = countCharacters(line);
        }
    }
    return lines;
}

} // namespace kivoconfig
