#include "Findings.h"

#include "Call.h"
#include "Origins.h"
#include "text/Characters.h"
#include "text/CodePage.h"

#include <configuration/InspectionReport.h>

using namespace kivo::configuration;

namespace kivoconfig {

Json toJson(Finding const& finding) {
    Json document{{"severity", finding.getSeverity() == Finding::ERROR_SEVERITY ? "error" : "warning"},
                  {"rule", finding.getRule()},
                  {"message", toUtf8(finding.getMessage())}};
    if (auto const origin = finding.getOrigin(); origin.isKnown()) {
        document["origin"] = toJson(origin);
    }
    if (char const* suggestion = finding.getSuggestion()) {
        document["suggestion"] = toUtf8(suggestion);
    }
    return document;
}

Json toJson(std::vector<Finding> const& findings) {
    auto documents = Json::array();
    for (auto const& finding : sortFindings(findings)) {
        documents.push_back(toJson(finding));
    }
    return documents;
}

void writeFindings(std::ostream& out, std::vector<Finding> const& findings) {
    out << toLocal(printableLines(toUtf8(composeFindings(findings))));
}

void reportFindings(std::vector<Finding> const& findings, Call& call) {
    if (call.isJson) {
        writeJson(call.out, {{"version", JSON_VERSION}, {"findings", toJson(findings)}});
    } else {
        writeFindings(call.out, findings);
    }
}

ExitStatus statusOf(std::vector<Finding> const& findings, Call const& call) {
    return getExitStatus(findings, call.areWarningsFatal) == 0 ? NO_ERROR_FOUND : ERROR_FOUND;
}

} // namespace kivoconfig
