#include "kernel/kvProcessInit.h"

#include <configuration/CommandLineValueProvider.h>
#include <configuration/EnvironmentValueProvider.h>
#include <configuration/XmlFileValueProvider.h>

#include "manager/ContextMgr.h"
#include "manager/ManagerImpl.h"
#include "manager/ToolStart.h"
#include "manager/VectorWrapper.h"
#include "registry/xml/XmlScope.h"
#include "schema/MainLog.h"

namespace kivo::configuration {

namespace {

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

} // namespace

void Manager::Impl::enableConfiguration(bool allowMachineConfig, char const* applicationConfigFile, unsigned int argc,
                                        char const* const* argv) {
    auto const arguments = VectorWrapper::toVector(argv ? argc : 0, argv);
    std::string const applicationFile = applicationConfigFile ? applicationConfigFile : "";
    logEnabling(allowMachineConfig, applicationFile, arguments);

    ContextMgr const context;
    XmlScope const scope;
    mProviders.clear();
    auto const split = splitArguments(arguments, mCommandLineStyle);
    for (auto const& file : split.files) {
        loadAndLogConfigurationFile(nameOf(file), false, file.flag);
    }
    if (!arguments.empty()) {
        VectorWrapper const kept(split.kept);
        auto& provider = addProvider<CommandLineValueProvider>(mNextProviderPriority++);
        provider.setCommandLineStyle(mCommandLineStyle);
        provider.setVersionFlag(!mVersionText.empty());
        provider.setOriginalIndexes(split.keptIndexes);
        provider.enableProvider(kept.size(), kept, 0);
    }
    if (!applicationFile.empty()) {
        loadAndLogConfigurationFile(applicationFile, false, {});
    }
    if (allowMachineConfig) {
        loadAndLogConfigurationFile(machineConfigurationFile(), true, {});
    }
}

void Manager::Impl::enableEnvironment(char const* prefix) {
    auto const* const commandLine = findProvider(COMMAND_LINE_PROVIDER_NAME);
    auto provider = std::make_unique<EnvironmentValueProvider>(commandLine ? commandLine->getPriority()
                                                                           : APPLICATION_VALUES_PRIORITY);
    provider->enableProvider(prefix, 0);
    registerProvider(provider.get());
    provider.release();
}

bool Manager::Impl::loadConfigurationFile(std::string const& path, bool allowMissing, StoredOrigin const& demand) {
    auto const found = findConfigurationFile(path, allowMissing, demand);
    if (found) {
        addProvider<XmlFileValueProvider>(mNextProviderPriority++).enableProvider(found->c_str(), 0);
    }
    return found.has_value();
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
