#pragma once

#include <configuration/CommandLineStyle.h>
#include <configuration/Export.h>

#include <memory>

namespace kivo::configuration {

/// What a tool would be started with, for an Inspection: the arguments of Manager::enableConfiguration() and
/// Manager::getValueGroup(). Every setter copies what it gets and returns this object.
/// Not synchronized.
class KIVO_CONFIGURATION_API InspectionInputs {
public:
    /// When the installation's "machine.config" counts.
    enum MachineConfig {
        MACHINE_CONFIG_LEFT_OUT = 0,          ///< never
        MACHINE_CONFIG_TAKEN = 1,             ///< whenever it is there
        MACHINE_CONFIG_TAKEN_IF_ADDRESSED = 2 ///< when its document element is named by the specification's id, or when
                                              ///< it cannot be read
    };

    /// No files, no arguments, no flags; nothing is required.
    InspectionInputs();
    /// An independent copy.
    InspectionInputs(InspectionInputs const& other);
    /// Replaces all by copies of the other's.
    InspectionInputs& operator=(InspectionInputs const& other);
    ~InspectionInputs();

    /// Whether "machine.config" counts: whenever it is there, or never. It need not exist.
    InspectionInputs& setMachineConfig(bool allowed);
    /// As above, with the third choice.
    InspectionInputs& setMachineConfig(MachineConfig machineConfig);
    /// The application's values file; null or empty: none.
    InspectionInputs& setApplicationFile(char const* path);
    /// The tool's arguments. Files named by "-loadConfiguration" are read as a start of the tool would read them.
    /// @param argc number of arguments
    /// @param argv the arguments, argv[0] the name of the tool; null: no command line
    InspectionInputs& setArguments(unsigned int argc, char const* const* argv);
    /// How the arguments are written; PLAIN_COMMAND_LINE at first. In GNU_COMMAND_LINE, "--version" is no fault: a tool
    /// may know it.
    InspectionInputs& setCommandLineStyle(CommandLineStyle style);
    /// The environment variables that begin with a prefix, as they are now; see EnvironmentValueProvider.
    /// @param prefix null or empty: the environment does not count
    /// @throws what EnvironmentValueProvider::setArguments() throws; nothing is changed then
    InspectionInputs& setEnvironment(char const* prefix);
    /// Whether more may come on the command line than setArguments() says. If so, nothing is reported as missing, and
    /// defaults are shown as they will apply once anything is given. Off at first.
    InspectionInputs& setOpenCommandLine(bool open);
    /// The flags of the request: RESOLVE_FLAG_NAMES and STRICT_RECOGNITION.
    InspectionInputs& setFlags(int flags);
    /// Whether it is an error when no value was given at all. Off at first.
    InspectionInputs& setRequired(bool required);

private:
    friend class Inspection;
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
