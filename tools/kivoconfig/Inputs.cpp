#include "Inputs.h"

#include "Call.h"
#include "Complaints.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Flags.h>
#include <configuration/Specification.h>

#include <algorithm>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

InspectionInputs::MachineConfig machineConfigOf(Inputs const& inputs) {
    if (inputs.takesMachineConfig) {
        return InspectionInputs::MACHINE_CONFIG_TAKEN;
    }
    return inputs.leavesOutMachineConfig ? InspectionInputs::MACHINE_CONFIG_LEFT_OUT
                                         : InspectionInputs::MACHINE_CONFIG_TAKEN_IF_ADDRESSED;
}

/// What is wrong with a prefix; empty when nothing is.
std::string checkPrefix(std::string const& prefix) {
    if (prefix.empty()) {
        return "the prefix of environment variables is empty";
    }
    try {
        InspectionInputs().setEnvironment(prefix.c_str());
        return {};
    } catch (ConfigurationException const& fault) {
        return fault.what();
    }
}

} // namespace

void addGnu(CommandOptions& options, bool& isGnu) {
    options.addFlag("--gnu", isGnu, "The tool's command line is in GNU style");
}

void addInputs(CommandOptions& options, Inputs& inputs) {
    options.addText("--config", inputs.applicationFile, "The values file that the tool itself reads")
        .check([](std::string const& file) { return std::string(file.empty() ? "the name of a file is empty" : ""); })
        .showAs("FILE");
    auto const machine = options.addFlag("--machine", inputs.takesMachineConfig,
                                         "Take machine.config in, even if it is for another specification");
    options.addFlag("--no-machine", inputs.leavesOutMachineConfig, "Leave machine.config out").exclude(machine);
    options.addFlag("--strict", inputs.isStrict, "The tool refuses names that it does not know");
    options.addFlag("--names", inputs.resolvesNames, "The tool accepts shortened flags");
    addGnu(options, inputs.isGnu);
    options.addText("--environment", inputs.environmentPrefix, "The tool reads environment variables of this prefix")
        .check(checkPrefix)
        .showAs("PREFIX");
    options.setFooter(
        "After \"--\" stand the arguments of the tool, without its name. Without \"--\" nothing counts as missing.");
}

bool areGiven(Inputs const& inputs, Call const& call) {
    return call.hasArguments || !inputs.applicationFile.empty() || inputs.takesMachineConfig ||
           inputs.leavesOutMachineConfig || inputs.isStrict || inputs.resolvesNames || inputs.isGnu ||
           !inputs.environmentPrefix.empty();
}

InspectionInputs composeInputs(Inputs const& inputs, Call const& call) {
    InspectionInputs composed;
    composed.setMachineConfig(machineConfigOf(inputs))
        .setApplicationFile(inputs.applicationFile.c_str())
        .setFlags((inputs.isStrict ? STRICT_RECOGNITION : 0) | (inputs.resolvesNames ? RESOLVE_FLAG_NAMES : 0))
        .setCommandLineStyle(inputs.isGnu ? GNU_COMMAND_LINE : PLAIN_COMMAND_LINE)
        .setEnvironment(inputs.environmentPrefix.c_str())
        .setOpenCommandLine(!call.hasArguments)
        .setRequired(call.hasArguments);
    if (call.hasArguments) {
        std::vector<char const*> arguments{call.specification.c_str()}; // any name will do for the tool
        std::ranges::transform(call.arguments, std::back_inserter(arguments),
                               [](std::string const& each) { return each.c_str(); });
        composed.setArguments(static_cast<unsigned int>(arguments.size()), arguments.data());
    }
    return composed;
}

Inspection inspect(Specification const& specification, Inputs const& inputs, Call const& call) {
    Inspection inspection(specification, composeInputs(inputs, call));
    if (inspection.isMachineConfigLeftOut()) {
        complain(std::string("note: machine.config is not for \"") + specification.getId() +
                 "\" and was left out; --machine takes it in");
    }
    return inspection;
}

} // namespace kivoconfig
