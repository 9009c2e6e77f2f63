#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>

#include "kernel/kvDirectories.h"
#include "kernel/kvKivo.h"
#include "manager/ConfigurationRegistryFilesFinder.h"
#include "manager/ContextMgr.h"
#include "manager/InstallationPaths.h"
#include "manager/ManagerImpl.h"
#include "registry/ConfigurationRegistryLoader.h"
#include "registry/xml/XmlScope.h"
#include "schema/StorageLocationValidator.h"

#include <algorithm>

namespace kivo::configuration {

namespace {

constexpr char const* MAIN_CONFIGURATION_REGISTRY_FILE_NAME = "kivobase.crg";

bool isMainRegistry(std::string const& path) {
    auto const separator = path.rfind(directorySeparator());
    return separator != std::string::npos &&
           equalIgnoringCase(std::string_view(path).substr(separator + 1), MAIN_CONFIGURATION_REGISTRY_FILE_NAME);
}

ConfigurationRegistryFilesFinder::Paths findRegistryFiles() {
    ConfigurationRegistryFilesFinder finder;
    if (auto const etc = installationDirectory(kvGetEtcDir); !etc.empty()) {
        finder.scan(etc.c_str(), false);
    }
    if (auto const plugins = installationDirectory(kvGetPluginsDir); !plugins.empty()) {
        finder.scan(plugins.c_str(), true);
    }
    return finder.getPaths();
}

/// Says in the main log where the main registry file was looked for.
void logSearchedDirectories() {
    auto const text = std::string("Unable to find the ") + MAIN_CONFIGURATION_REGISTRY_FILE_NAME +
                      " file in these directories:\n [etc = " + describeInstallationDirectory(kvGetEtcDir) +
                      "]\n [plug-ins, and all below = " + describeInstallationDirectory(kvGetPluginsDir) + "]";
    kvKivo::addToMainLog("Kernel", text.c_str());
}

/// Registers a validator, or destroys it when it is refused.
void addOwned(KeyedRegistry<ParameterValidator>& validators, ParameterValidator* made) {
    std::unique_ptr<ParameterValidator, Destroyer> validator(made);
    validators.add(validator->getName(), validator.get());
    static_cast<void>(validator.release());
}

} // namespace

void Manager::Impl::loadDefaultConfigurationRegistry() {
    ContextMgr const context;
    auto paths = findRegistryFiles();
    auto const main = std::ranges::find_if(paths, isMainRegistry);
    if (main == paths.end()) {
        logSearchedDirectories();
        throw ConfigurationException("Unable to find the %s file.", MAIN_CONFIGURATION_REGISTRY_FILE_NAME);
    }
    XmlScope const scope;
    ConfigurationRegistryLoader loader;
    loader.loadFile(main->c_str());
    paths.erase(main);
    for (auto const& path : paths) {
        loader.loadFile(path.c_str());
    }
}

void Manager::Impl::registerDefaultValidators() {
    ContextMgr const context;
    addOwned(mValidators, std::make_unique<StorageLocationValidator>().release());
    auto const count = mValidatorExtensionPoint.getNumberOfPlugins();
    for (unsigned long i = 0; i < count; ++i) {
        if (auto* made = mValidatorExtensionPoint.createImplementation(i)) {
            addOwned(mValidators, static_cast<ParameterValidator*>(made));
        }
    }
}

} // namespace kivo::configuration
