#include "RegistryReport.h"

#include "Call.h"
#include "Faults.h"
#include "Origins.h"
#include "text/Characters.h"
#include "text/CodePage.h"
#include "text/Json.h"

#include <sstream>

namespace kivoconfig {

namespace {

char const* const RULE = "invalid-registry";

} // namespace

void reportRegistryFault(RegistryFault const& fault, Call& call) {
    auto const place = fault.getOrigin().isKnown() ? fault.getOrigin().toString() + ": " : "";
    auto findings = Json::array();
    std::istringstream lines(fault.what());
    for (std::string line; std::getline(lines, line);) {
        if (call.isJson) {
            Json finding{{"severity", "error"}, {"rule", RULE}, {"message", toUtf8(line)}};
            if (fault.getOrigin().isKnown()) {
                finding["origin"] = toJson(fault.getOrigin());
            }
            findings.push_back(std::move(finding));
        } else {
            call.out << toLocal(printable(toUtf8(place + "error: " + line))) << " [" << RULE << "]\n";
        }
    }
    if (call.isJson) {
        writeJson(call.out, {{"version", JSON_VERSION}, {"findings", findings}});
    }
}

} // namespace kivoconfig
