#include "Origins.h"

#include "text/CodePage.h"

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

char const* nameOf(Origin::Source source) {
    switch (source) {
    case Origin::UNKNOWN_SOURCE: break;
    case Origin::DEFAULT_SOURCE: return "default";
    case Origin::APPLICATION_SOURCE: return "application";
    case Origin::COMMAND_LINE_SOURCE: return "command-line";
    case Origin::FILE_SOURCE: return "file";
    case Origin::ENVIRONMENT_SOURCE: return "environment";
    case Origin::PROVIDER_SOURCE: return "provider";
    }
    return "";
}

void addNumber(Json& document, char const* name, unsigned long number) {
    if (number > 0) {
        document[name] = number;
    }
}

} // namespace

Json toJson(Origin const& origin) {
    Json document{{"source", nameOf(origin.getSource())}};
    if (*origin.getName() != '\0') {
        document["name"] = toUtf8(origin.getName());
    }
    addNumber(document, "line", origin.getLine());
    addNumber(document, "column", origin.getColumn());
    addNumber(document, "argument", origin.getArgument());
    return document;
}

} // namespace kivoconfig
