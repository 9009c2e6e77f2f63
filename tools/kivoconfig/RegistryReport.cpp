#include "RegistryReport.h"

#include "Call.h"
#include "Faults.h"
#include "Findings.h"
#include "text/Characters.h"
#include "text/CodePage.h"

#include <sstream>

using namespace kivo::configuration;

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
            findings.push_back(
                toJson(Finding(Finding::ERROR_SEVERITY, RULE, line.c_str(), fault.getOrigin(), nullptr)));
        } else {
            call.out << toLocal(printable(toUtf8(place + "error: " + line))) << " [" << RULE << "]\n";
        }
    }
    if (call.isJson) {
        writeJson(call.out, {{"version", JSON_VERSION}, {"findings", findings}});
    }
}

} // namespace kivoconfig
