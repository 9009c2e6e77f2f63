// Prints what a specification of the installation accepts: for whoever writes a registry file.

#include "toolkit/Faults.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Manager.h>
#include <configuration/ParameterGroup.h>
#include <configuration/Specification.h>

#include <iostream>

using namespace kivo::configuration;

int main(int argc, char** argv) {
    return toolkit::runTool("kivodescribe", [&] {
        if (argc != 2) {
            throw ConfigurationException("usage: kivodescribe <specification>");
        }
        Manager& manager = *Manager::getInstance();
        std::cout << manager.composeUsageMessage(Manager::COMMAND_LINE_PROVIDER_NAME, argv[1]) << "\n\n"
                  << manager.getRepresentation(*manager.getSpecification(argv[1])->getParameterGroup());
    });
}
