// A tool that needs no registry file of its own: it describes its settings in code, and sets some values itself. The
// others come from its command line, from the files that this names, and from environment variables.

#include "RestoreSettings.h"
#include "toolkit/Faults.h"
#include "toolkit/Help.h"
#include "toolkit/SettingsText.h"

#include <configuration/Flags.h>
#include <configuration/Inspection.h>
#include <configuration/InspectionReport.h>
#include <configuration/Manager.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>
#include <configuration/ValueGroup.h>

#include <algorithm>
#include <iostream>
#include <string_view>

using namespace kivo::configuration;

namespace {

constexpr int FLAGS = RESOLVE_FLAG_NAMES | STRICT_RECOGNITION;

// Prints where each setting comes from, and all faults of all sources.
// @return the exit status: 1 when there is a fault
int explain(Specification const& specification) {
    Inspection const inspection(specification, true, FLAGS);
    std::cout << composeExplanation(inspection, false);
    return getExitStatus(inspection.getFindings(), false);
}

int restore(int argc, char const* const* argv) {
    Manager& manager = *Manager::getInstance();
    Specification const& specification = *describeRestore(manager);
    manager.setCommandLineStyle(GNU_COMMAND_LINE);
    manager.setVersionText("kivorestore 1.0");
    manager.enableConfiguration(false, nullptr, static_cast<unsigned int>(argc), argv);
    manager.enableEnvironment("KIVORESTORE");
    manager.setApplicationValues(restoreValues(), 0);

    // Before settings are asked for, which ends at the first fault.
    auto const asksForExplanation = [](std::string_view argument) {
        return argument == "--explain" || argument == "-explain";
    };
    if (std::any_of(argv, argv + argc, asksForExplanation)) {
        return explain(specification);
    }
    ValueGroup const settings = manager.getValueGroup(specification.getId(), true, FLAGS);
    if (toolkit::isSet(settings, "version")) {
        std::cout << manager.getVersionText() << '\n';
        return 0;
    }
    if (toolkit::isSet(settings, "explain")) { // given in a short form, or in a file
        return explain(specification);
    }
    std::cout << (toolkit::isSet(settings, "help")
                      ? toolkit::composeHelp(manager, specification, settings, "")
                      : toolkit::describeSettings(*specification.getParameterGroup(), settings));
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    int status = 0;
    int const failure = toolkit::runTool("kivorestore", [&] { status = restore(argc, argv); });
    return failure != 0 ? failure : status;
}
