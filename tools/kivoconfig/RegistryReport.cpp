#include "RegistryReport.h"

#include "Call.h"
#include "Faults.h"
#include "text/Characters.h"
#include "text/CodePage.h"
#include "text/Json.h"

#include <sstream>

namespace kivoconfig {

namespace {

char const* const RULE = "invalid-registry";

} // namespace

void reportRegistryFault(RegistryFault const& fault, Call& call) {
    auto findings = Json::array();
    std::istringstream lines(fault.what());
    for (std::string line; std::getline(lines, line);) {
        if (call.isJson) {
            findings.push_back({{"severity", "error"}, {"rule", RULE}, {"message", toUtf8(line)}});
        } else {
            call.out << "error: " << toLocal(printable(toUtf8(line))) << " [" << RULE << "]\n";
        }
    }
    if (call.isJson) {
        writeJson(call.out, {{"version", JSON_VERSION}, {"findings", findings}});
    }
}

} // namespace kivoconfig
