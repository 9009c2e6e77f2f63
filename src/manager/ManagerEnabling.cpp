#include "kernel/kvProcessInit.h"

#include <configuration/CommandLineValueProvider.h>
#include <configuration/ConfigurationException.h>
#include <configuration/XmlFileValueProvider.h>

#include "kernel/kvDirectories.h"
#include "kernel/kvFiles.h"
#include "manager/ContextMgr.h"
#include "manager/InstallationPaths.h"
#include "manager/ManagerImpl.h"
#include "manager/VectorWrapper.h"
#include "providers/CommandLineArguments.h"
#include "registry/xml/XmlScope.h"
#include "schema/LocatedException.h"
#include "schema/MainLog.h"

#include <optional>

namespace kivo::configuration {

namespace {

constexpr char const* LOAD_CONFIGURATION_FLAG = "-loadConfiguration";
constexpr char const* MACHINE_CONFIGURATION_FILE_NAME = "machine.config";

void logEnabling(bool allowMachineConfig, std::string const& applicationConfigFile,
                 std::vector<std::string> const& arguments) {
    std::string text = "enableConfiguration:\n [allow machine config = ";
    text.append(allowMachineConfig ? "true" : "false").append("]\n [application config file = \"");
    text.append(applicationConfigFile).append("\"]\n [command line = ");
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        text.append(i > 0 ? ", \"" : "\"").append(arguments[i]).append("\"");
    }
    addToMainLog(text.append("]"));
}

void logLoading(char const* outcome, std::string const& path) {
    std::string text = "loadConfigurationFile: [";
    text.append(outcome).append("]\n [file = \"").append(path).append("\"]");
    addToMainLog(text);
}

/// A tool's arguments, taken apart.
struct CommandLine {
    /// A file named by a flag.
    struct File {
        std::string name;
        StoredOrigin flag;
    };

    std::vector<std::string> kept;              // what the command-line provider gets, the program's name first
    std::vector<unsigned long> keptIndexes;     // where these stood
    std::vector<File> files;                    // what follows "-loadConfiguration"
    std::optional<StoredOrigin> incompleteFlag; // a "-loadConfiguration" after these that has no value
};

CommandLine splitCommandLine(std::vector<std::string> const& arguments) {
    CommandLine commandLine;
    auto const keep = [&](std::string const& argument, unsigned long index) {
        commandLine.kept.push_back(argument);
        commandLine.keptIndexes.push_back(index);
    };
    keep(arguments[0], 0);
    for (auto const& [argument, value, index] : pairArguments(arguments)) {
        auto const origin = StoredOrigin::ofCommandLine().at(index);
        if (!equalIgnoringCase(*argument, LOAD_CONFIGURATION_FLAG)) {
            keep(*argument, index);
            if (value) {
                keep(*value, index + 1);
            }
        } else if (value && !value->empty()) {
            commandLine.files.push_back({*value, origin});
        } else {
            commandLine.incompleteFlag = origin;
            break;
        }
    }
    return commandLine;
}

} // namespace

void Manager::Impl::enableConfiguration(bool allowMachineConfig, char const* applicationConfigFile, unsigned int argc,
                                        char const* const* argv) {
    auto const arguments = VectorWrapper::toVector(argv ? argc : 0, argv);
    std::string const applicationFile = applicationConfigFile ? applicationConfigFile : "";
    logEnabling(allowMachineConfig, applicationFile, arguments);

    ContextMgr const context;
    XmlScope const scope;
    mProviders.clear();
    auto const commandLine = arguments.empty() ? CommandLine{} : splitCommandLine(arguments);
    for (auto const& [fileName, flag] : commandLine.files) {
        loadAndLogConfigurationFile(fileName, false, flag);
    }
    if (commandLine.incompleteFlag) {
        throw located(*commandLine.incompleteFlag,
                      ConfigurationException("Missing value for the -loadConfiguration parameter"));
    }
    if (!arguments.empty()) {
        VectorWrapper const kept(commandLine.kept);
        auto& provider = addProvider<CommandLineValueProvider>(mNextProviderPriority++);
        provider.setOriginalIndexes(commandLine.keptIndexes);
        provider.enableProvider(kept.size(), kept, 0);
    }
    if (!applicationFile.empty()) {
        loadAndLogConfigurationFile(applicationFile, false, {});
    }
    if (allowMachineConfig) {
        loadAndLogConfigurationFile(installationDirectory(kvGetConfigDir) + MACHINE_CONFIGURATION_FILE_NAME, true, {});
    }
}

bool Manager::Impl::loadConfigurationFile(std::string const& path, bool allowMissing, StoredOrigin const& demand) {
    auto resolved = path;
    if (kvLocalExists(resolved.c_str()) == KV_FILE_MISSING && path.find(directorySeparator()) == std::string::npos) {
        resolved = installationDirectory(kvGetConfigDir) + path;
    }
    if (kvLocalExists(resolved.c_str()) == KV_FILE_MISSING) {
        if (allowMissing) {
            return false;
        }
        throw located(demand.isKnown() ? demand : StoredOrigin(Origin::FILE_SOURCE, resolved),
                      ConfigurationException("File \"%s\" was not found", resolved.c_str()));
    }
    addProvider<XmlFileValueProvider>(mNextProviderPriority++).enableProvider(resolved.c_str(), 0);
    return true;
}

void Manager::Impl::loadAndLogConfigurationFile(std::string const& path, bool allowMissing,
                                                StoredOrigin const& demand) {
    ContextMgr const context;
    try {
        if (loadConfigurationFile(path, allowMissing, demand)) {
            logLoading("succeeded", path);
        }
    } catch (std::exception const&) {
        logLoading("failed", path);
        throw;
    }
}

} // namespace kivo::configuration
