#pragma once

#include <configuration/InspectionInputs.h>

#include "providers/EnvironmentVariables.h"

#include <optional>
#include <string>
#include <vector>

namespace kivo::configuration {

class InspectionPipeline;
class Manager;

/// Gives a pipeline the sources that a tool would have, in the order in which a request asks them.
/// @param arguments     the tool's name first; empty: no command line
/// @param style         of the arguments
/// @param machineConfig when the installation's file counts
/// @return whether MACHINE_CONFIG_TAKEN_IF_ADDRESSED left the installation's file out
bool addToolSources(InspectionPipeline& pipeline, std::vector<std::string> const& arguments, CommandLineStyle style,
                    std::optional<EnvironmentVariables> const& environment, std::string const& applicationFile,
                    InspectionInputs::MachineConfig machineConfig);

/// Gives a pipeline the values of the manager's enabled providers, in the order in which a request asks them.
void addProviders(InspectionPipeline& pipeline, Manager& manager, int flags);

} // namespace kivo::configuration
