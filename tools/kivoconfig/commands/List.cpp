// Lists the specifications of the installation.

#include "Commands.h"
#include "Installation.h"
#include "Origins.h"
#include "text/Characters.h"
#include "text/CodePage.h"
#include "text/Columns.h"
#include "text/Json.h"

#include <configuration/Specification.h>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

void writeText(std::ostream& out) {
    Columns columns;
    for (auto const* specification : allSpecifications()) {
        columns.addRow({printable(toUtf8(specification->getId())), printable(toUtf8(specification->getDescription())),
                        printable(toUtf8(specification->getDeclarationOrigin().toString()))});
    }
    columns.write(out);
}

void writeDocument(std::ostream& out) {
    auto specifications = Json::array();
    for (auto const* specification : allSpecifications()) {
        specifications.push_back({{"name", toUtf8(specification->getId())},
                                  {"description", toUtf8(specification->getDescription())},
                                  {"origin", toJson(specification->getDeclarationOrigin())}});
    }
    writeJson(out, {{"version", JSON_VERSION}, {"specifications", specifications}});
}

} // namespace

Work prepareList(CommandOptions& options, Call& call) {
    addJson(options, call);
    return [&call] {
        call.isJson ? writeDocument(call.out) : writeText(call.out);
        return NO_ERROR_FOUND;
    };
}

} // namespace kivoconfig
