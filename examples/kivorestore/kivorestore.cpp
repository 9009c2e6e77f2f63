// A tool that needs no registry file of its own: it describes its settings in code, reads nothing but its command line,
// and sets some values itself.

#include "RestoreSettings.h"
#include "toolkit/Faults.h"
#include "toolkit/Help.h"
#include "toolkit/SettingsText.h"

#include <configuration/CommandLineValueProvider.h>
#include <configuration/Flags.h>
#include <configuration/Manager.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>
#include <configuration/ValueGroup.h>

#include <iostream>
#include <memory>

using namespace kivo::configuration;

namespace {

constexpr int COMMAND_LINE_PRIORITY = 1; // the values that the tool sets itself have 0, and win

void restore(int argc, char const* const* argv) {
    Manager& manager = *Manager::getInstance();
    Specification const& specification = *describeRestore(manager);

    auto commandLine = std::make_unique<CommandLineValueProvider>(COMMAND_LINE_PRIORITY);
    commandLine->setCommandLineStyle(GNU_COMMAND_LINE);
    commandLine->enableProvider(argc, argv, STRICT_RECOGNITION);
    manager.registerProvider(commandLine.release());
    manager.setApplicationValues(restoreValues(), 0);

    ValueGroup const settings =
        manager.getValueGroup(specification.getId(), true, RESOLVE_FLAG_NAMES | STRICT_RECOGNITION);
    std::cout << (toolkit::isSet(settings, "help")
                      ? toolkit::composeHelp(manager, specification, settings, "")
                      : toolkit::describeSettings(*specification.getParameterGroup(), settings));
}

} // namespace

int main(int argc, char** argv) {
    return toolkit::runTool("kivorestore", [&] { restore(argc, argv); });
}
