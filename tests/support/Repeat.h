#pragma once

#include <string>

namespace kivo::test {

/// A text again and again, with the number of the repetition, from 0, for each "#" in it.
inline std::string repeat(int count, std::string const& piece) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        for (char const c : piece) {
            c == '#' ? text.append(std::to_string(i)) : text.append(1, c);
        }
    }
    return text;
}

/// Writes out what is repeated in a text: "<r>{3:<a#/>}</r>" stands for "<r><a0/><a1/><a2/></r>". Inner braces are
/// written out first.
inline std::string expanded(std::string text) {
    for (auto end = text.find('}'); end != std::string::npos; end = text.find('}')) {
        auto const begin = text.rfind('{', end);
        auto const colon = text.find(':', begin);
        auto const count = std::stoi(text.substr(begin + 1, colon - begin - 1));
        text.replace(begin, end + 1 - begin, repeat(count, text.substr(colon + 1, end - colon - 1)));
    }
    return text;
}

} // namespace kivo::test
