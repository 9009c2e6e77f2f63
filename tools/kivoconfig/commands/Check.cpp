// Checks what would be given to a tool: all faults of all sources.

#include "Commands.h"
#include "Faults.h"
#include "Findings.h"
#include "Inputs.h"
#include "Installation.h"
#include "text/CodePage.h"

#include <configuration/Specification.h>

#include <algorithm>
#include <iterator>
#include <memory>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

/// What is to be checked.
struct Options {
    Inputs inputs;
    bool isForAll = false;
};

ExitStatus check(Inputs const& inputs, Call& call) {
    auto const inspection = inspect(findSpecification(call.specification), inputs, call);
    auto const& findings = inspection.getFindings();
    if (call.isJson) {
        writeJson(call.out, {{"version", JSON_VERSION},
                             {"specification", toUtf8(inspection.getSpecificationId())},
                             {"findings", toJson(findings)}});
    } else {
        writeFindings(call.out, findings);
    }
    return statusOf(findings, call);
}

/// The finding about a "machine.config" that is for no specification, with what was probably meant.
std::vector<Finding> findForeignFile(std::vector<Specification const*> const& specifications) {
    std::vector<Finding> found;
    for (auto const* specification : specifications) {
        Inspection const inspection(*specification, InspectionInputs().setMachineConfig(true));
        auto const& findings = inspection.getFindings();
        auto const finding = std::ranges::find(findings, std::string_view("foreign-file"), &Finding::getRule);
        if (finding != findings.end() && (found.empty() || finding->getSuggestion())) {
            found.assign(1, Finding(Finding::WARNING_SEVERITY, finding->getRule(),
                                    "The file is for no specification of this installation", finding->getOrigin(),
                                    finding->getSuggestion()));
        }
    }
    return found;
}

std::vector<Finding> checkAll(Call const& call) {
    auto const specifications = allSpecifications();
    std::vector<Finding> findings;
    bool isForNone = !specifications.empty();
    for (auto const* specification : specifications) {
        Inspection const inspection(*specification, composeInputs(Inputs(), call));
        std::ranges::copy(inspection.getFindings(), std::back_inserter(findings));
        isForNone = isForNone && inspection.isMachineConfigLeftOut();
    }
    if (isForNone) {
        std::ranges::copy(findForeignFile(specifications), std::back_inserter(findings));
    }
    return findings;
}

} // namespace

Work prepareCheck(CommandOptions& options, Call& call) {
    auto const asked = std::make_shared<Options>();
    addSpecification(options, call).require(false);
    options.addFlag("--all", asked->isForAll, "Check every specification, with machine.config for the one it is for");
    addInputs(options, asked->inputs);
    addFatalWarnings(options, call);
    addJson(options, call);
    return [&call, asked] {
        if (asked->isForAll == !call.specification.empty()) {
            throw CallFault("either SPEC or --all is required");
        }
        if (!asked->isForAll) {
            return check(asked->inputs, call);
        }
        if (areGiven(asked->inputs, call)) {
            throw CallFault("--all takes no other inputs");
        }
        auto const findings = checkAll(call);
        reportFindings(findings, call);
        return statusOf(findings, call);
    };
}

} // namespace kivoconfig
