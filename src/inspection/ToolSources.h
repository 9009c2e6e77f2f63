#pragma once

#include <configuration/InspectionInputs.h>

#include "providers/EnvironmentVariables.h"

#include <optional>
#include <string>
#include <vector>

namespace kivo::configuration {

class InspectionPipeline;
class Manager;

/// What a tool would be started with.
struct ToolInputs {
    std::vector<std::string> arguments; ///< the tool's name first; empty: no command line
    CommandLineStyle style = PLAIN_COMMAND_LINE;
    std::optional<EnvironmentVariables> environment;
    std::string applicationFile; ///< empty: none
    InspectionInputs::MachineConfig machineConfig = InspectionInputs::MACHINE_CONFIG_LEFT_OUT;
};

/// Gives a pipeline the sources that a tool would have, in the order in which a request asks them.
/// @return whether MACHINE_CONFIG_TAKEN_IF_ADDRESSED left the installation's file out
bool addToolSources(InspectionPipeline& pipeline, ToolInputs const& inputs);

/// Gives a pipeline the values of the manager's enabled providers, in the order in which a request asks them.
void addProviders(InspectionPipeline& pipeline, Manager& manager, int flags);

} // namespace kivo::configuration
