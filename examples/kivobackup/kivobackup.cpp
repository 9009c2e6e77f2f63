// Shows how a backup tool gets its settings. What it accepts is described in a registry file of the installation,
// etc/kivobackup.crg. The values come from its command line, from values files and from the machine's configuration.

#include "BackupPlan.h"
#include "toolkit/Faults.h"
#include "toolkit/Help.h"
#include "toolkit/SettingsText.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Flags.h>
#include <configuration/Manager.h>
#include <configuration/Specification.h>
#include <configuration/ValueGroup.h>

#include <cstdlib>
#include <iostream>

using namespace kivo::configuration;

namespace {

constexpr char const* TOOL = "kivobackup";
constexpr char const* NOTES = "\nFlags may be shortened as long as they stay unique.\n"
                              "-loadConfiguration <file> reads values that win over the other flags.\n";

void backUp(int argc, char const* const* argv) {
    Manager& manager = *Manager::getInstance();
    manager.enableConfiguration(true, std::getenv("KIVOBACKUP_CONFIG"), static_cast<unsigned int>(argc), argv);

    ValueGroup const settings = manager.getValueGroup(TOOL, false, RESOLVE_FLAG_NAMES | STRICT_RECOGNITION);
    if (settings.isNull()) {
        throw ConfigurationException("nothing to do; -help tells what there is");
    }
    Specification const& specification = *manager.getSpecification(TOOL);
    if (toolkit::isSet(settings, "help")) {
        std::cout << toolkit::composeHelp(manager, specification, settings, NOTES);
        return;
    }
    // Both before anything is printed: a label that does not exist is only found when it is read.
    BackupPlan const plan(settings);
    std::string const text = toolkit::describeSettings(*specification.getParameterGroup(), settings);
    std::cout << text << plan.describe() << '\n';
}

} // namespace

int main(int argc, char** argv) {
    return toolkit::runTool(TOOL, [&] { backUp(argc, argv); });
}
