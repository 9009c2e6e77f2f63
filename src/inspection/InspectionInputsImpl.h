#pragma once

#include <configuration/InspectionInputs.h>

#include "providers/EnvironmentVariables.h"

#include <optional>
#include <string>
#include <vector>

namespace kivo::configuration {

/// What a tool would be started with.
class InspectionInputs::Impl {
public:
    MachineConfig machineConfig = MACHINE_CONFIG_LEFT_OUT;
    std::string applicationFile;
    std::vector<std::string> arguments; // empty: no command line
    CommandLineStyle style = PLAIN_COMMAND_LINE;
    std::optional<EnvironmentVariables> environment;
    bool isCommandLineOpen = false;
    int flags = 0;
    bool isRequired = false;
};

} // namespace kivo::configuration
