#include "kernel/kvProcessInit.h"

#include "manager/ConfigurationRegistryFilesFinder.h"

#include "manager/RegistryFiles.h"

namespace kivo::configuration {

bool ConfigurationRegistryFilesFinder::visitFile(char const* path) {
    if (endsWith(path, REGISTRY_FILE_EXTENSION)) {
        mPaths.emplace(path);
    }
    return true;
}

ConfigurationRegistryFilesFinder::Paths const& ConfigurationRegistryFilesFinder::getPaths() const { return mPaths; }

} // namespace kivo::configuration
