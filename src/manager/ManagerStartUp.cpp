#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>

#include "kernel/kvDirectories.h"
#include "kernel/kvKivo.h"
#include "manager/ContextMgr.h"
#include "manager/InstallationPaths.h"
#include "manager/ManagerImpl.h"
#include "manager/RegistryFiles.h"
#include "registry/ConfigurationRegistryLoader.h"
#include "registry/xml/XmlScope.h"
#include "schema/StorageLocationValidator.h"

namespace kivo::configuration {

namespace {

/// Says in the main log where the main registry file was looked for.
void logSearchedDirectories() {
    auto const text = std::string("Unable to find the ") + MAIN_REGISTRY_FILE_NAME +
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
    auto const files = findRegistryFiles();
    try {
        requireMainRegistry(files);
    } catch (ConfigurationException const&) {
        logSearchedDirectories();
        throw;
    }
    XmlScope const scope;
    ConfigurationRegistryLoader loader;
    for (auto const& file : files) {
        loader.loadFile(file.path.c_str());
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
