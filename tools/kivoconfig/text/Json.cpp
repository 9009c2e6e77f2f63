#include "text/Json.h"

#include "text/Characters.h"

#include <cstdio>

namespace kivoconfig {

void writeJson(std::ostream& out, Json const& document) {
    auto const text = document.dump(2, ' ', false, Json::error_handler_t::replace);
    // Controls beyond ASCII can only stand inside strings, where any character may be an escape.
    for (std::string_view rest = text; !rest.empty();) {
        auto const begin = rest;
        auto const character = takeCharacter(rest);
        if (character >= 0x7f && isControl(character)) {
            char escape[8];
            std::snprintf(escape, sizeof(escape), "\\u%04x", static_cast<unsigned>(character));
            out << escape;
        } else {
            out << begin.substr(0, begin.size() - rest.size());
        }
    }
    out << '\n';
}

} // namespace kivoconfig
