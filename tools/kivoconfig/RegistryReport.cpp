#include "RegistryReport.h"

#include "Call.h"
#include "Faults.h"
#include "Findings.h"

#include <configuration/RegistryInspection.h>

#include <sstream>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

char const* const RULE = "invalid-registry";

/// All that keeps the registry from loading, with suggestions, and without secrets. Loading itself tells only of the
/// first fault, and shows secrets.
std::vector<Finding> findErrors() {
    try {
        auto errors = RegistryInspection(std::vector<std::string>()).getFindings();
        std::erase_if(errors, [](Finding const& each) { return each.getSeverity() != Finding::ERROR_SEVERITY; });
        return errors;
    } catch (std::exception const&) {
        return {}; // what loading said stands
    }
}

/// What loading said, a finding for each line.
std::vector<Finding> toFindings(RegistryFault const& fault) {
    std::vector<Finding> findings;
    std::istringstream lines(fault.what());
    for (std::string line; std::getline(lines, line);) {
        findings.emplace_back(Finding::ERROR_SEVERITY, RULE, line.c_str(), fault.getOrigin(), nullptr);
    }
    return findings;
}

} // namespace

void reportRegistryFault(RegistryFault const& fault, Call& call) {
    auto const errors = findErrors();
    reportFindings(errors.empty() ? toFindings(fault) : errors, call);
}

} // namespace kivoconfig
