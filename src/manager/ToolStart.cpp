#include "kernel/kvProcessInit.h"

#include "manager/ToolStart.h"

#include <configuration/ConfigurationException.h>

#include "kernel/kvDirectories.h"
#include "kernel/kvFiles.h"
#include "manager/InstallationPaths.h"
#include "providers/CommandLineArguments.h"
#include "schema/LocatedException.h"
#include "schema/NameComparison.h"

namespace kivo::configuration {

namespace {

constexpr char const* LOAD_CONFIGURATION_FLAG = "-loadConfiguration";
constexpr char const* MACHINE_CONFIGURATION_FILE_NAME = "machine.config";

} // namespace

ToolArguments splitArguments(std::vector<std::string> const& arguments) {
    ToolArguments split;
    if (arguments.empty()) {
        return split;
    }
    auto const keep = [&](std::string const& argument, unsigned long index) {
        split.kept.push_back(argument);
        split.keptIndexes.push_back(index);
    };
    keep(arguments[0], 0);
    for (auto const& [argument, value, index] : pairArguments(arguments)) {
        if (equalIgnoringCase(*argument, LOAD_CONFIGURATION_FLAG)) {
            split.files.push_back({value ? *value : "", StoredOrigin::ofCommandLine().at(index)});
            continue;
        }
        keep(*argument, index);
        if (value) {
            keep(*value, index + 1);
        }
    }
    return split;
}

std::string const& nameOf(ToolArguments::File const& file) {
    if (file.name.empty()) {
        throw located(file.flag, ConfigurationException("Missing value for the -loadConfiguration parameter"));
    }
    return file.name;
}

std::string machineConfigurationFile() {
    return installationDirectory(kvGetConfigDir) + MACHINE_CONFIGURATION_FILE_NAME;
}

std::optional<std::string> findConfigurationFile(std::string const& path, bool allowMissing,
                                                 StoredOrigin const& demand) {
    auto resolved = path;
    if (kvLocalExists(resolved.c_str()) == KV_FILE_MISSING && path.find(directorySeparator()) == std::string::npos) {
        resolved = installationDirectory(kvGetConfigDir) + path;
    }
    if (kvLocalExists(resolved.c_str()) != KV_FILE_MISSING) {
        return resolved;
    }
    if (allowMissing) {
        return std::nullopt;
    }
    throw located(demand.isKnown() ? demand : StoredOrigin(Origin::FILE_SOURCE, resolved),
                  ConfigurationException("File \"%s\" was not found", resolved.c_str()));
}

} // namespace kivo::configuration
