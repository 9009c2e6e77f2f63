#include "settings/CommentedValue.h"

#include "text/Xml.h"

namespace kivoconfig {

std::string commentedValue(std::string const& id, bool isDirect, std::string const& text) {
    auto const value = '"' + xmlEscapedInComment(xmlEscaped(text)) + '"';
    return isDirect ? "<!-- <" + id + " value=" + value + "/> -->"
                    : "<!-- in the start tag: " + id + '=' + value + " -->";
}

} // namespace kivoconfig
