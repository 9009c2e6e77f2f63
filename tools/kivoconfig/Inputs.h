#pragma once

#include <configuration/Inspection.h>
#include <configuration/InspectionInputs.h>

#include <string>

namespace kivo::configuration {
class Specification;
} // namespace kivo::configuration

namespace kivoconfig {

class CommandOptions;
struct Call;

/// What the tool in question would be started with, as options of kivoconfig say it. The tool's arguments are in the
/// call.
struct Inputs {
    std::string applicationFile = {};
    bool takesMachineConfig = false;     ///< whatever it is for
    bool leavesOutMachineConfig = false; ///< with neither, it is taken if it is for the specification
    bool isStrict = false;
    bool resolvesNames = false;
    bool isGnu = false;                 ///< the style of the arguments
    std::string environmentPrefix = {}; ///< empty: the tool reads no environment variables
};

/// Adds the option "--gnu", which says how the arguments of the tool in question are written.
void addGnu(CommandOptions& options, bool& isGnu);

/// Adds the options for inputs. They outlive the reading of the options.
void addInputs(CommandOptions& options, Inputs& inputs);

/// Whether any input is given, the tool's arguments included.
bool areGiven(Inputs const& inputs, Call const& call);

/// The inputs for the library. Values are required where the call has the tool's arguments, even none; else the command
/// line may bring what is missing.
kivo::configuration::InspectionInputs composeInputs(Inputs const& inputs, Call const& call);

/// Inspects what a tool would get. Says on standard error when "machine.config" is left out because it is for another
/// specification.
kivo::configuration::Inspection inspect(kivo::configuration::Specification const& specification, Inputs const& inputs,
                                        Call const& call);

} // namespace kivoconfig
