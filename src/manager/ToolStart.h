#pragma once

#include <configuration/CommandLineStyle.h>

#include "schema/StoredOrigin.h"

#include <optional>
#include <string>
#include <vector>

namespace kivo::configuration {

/// A tool's arguments, taken apart: those that name values files, and the others.
struct ToolArguments {
    /// What follows a "-loadConfiguration".
    struct File {
        std::string name; ///< empty: missing
        StoredOrigin flag;
    };

    std::vector<std::string> kept;          ///< what the command-line provider gets, the program's name first
    std::vector<unsigned long> keptIndexes; ///< where these stood
    std::vector<File> files;
};

/// @param arguments the program's name first; there may be none at all
ToolArguments splitArguments(std::vector<std::string> const& arguments, CommandLineStyle style);

/// The name of the file that a "-loadConfiguration" flag names.
/// @throws ConfigurationException "Missing value for the -loadConfiguration parameter"
std::string const& nameOf(ToolArguments::File const& file);

/// The path of the installation's "machine.config", whether it exists or not.
std::string machineConfigurationFile();

/// Where a values file lies: a name without a directory that does not exist is looked for in the configuration
/// directory.
/// @param allowMissing whether it need not exist
/// @param demand       who asks for it; unknown: nobody whom a user could find
/// @return nothing when it is missing and may be
/// @throws ConfigurationException "File \"<path>\" was not found"
std::optional<std::string> findConfigurationFile(std::string const& path, bool allowMissing,
                                                 StoredOrigin const& demand);

} // namespace kivo::configuration
