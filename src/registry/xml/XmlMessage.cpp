#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlMessage.h"

namespace kivo::configuration {

std::string composeXmlMessage(char const* kind, std::string const& text, std::string const& path,
                              XmlPosition position) {
    std::string message = "XML ";
    message.append(kind).append(": ").append(text).append(".");
    if (!path.empty()) {
        message.append(" File: \"").append(path).append("\".");
    }
    if (position.line != 0) {
        message.append(" Line: ").append(std::to_string(position.line)).append(".");
    }
    if (position.column != 0) {
        message.append(" Column: ").append(std::to_string(position.column)).append(".");
    }
    return message;
}

} // namespace kivo::configuration
