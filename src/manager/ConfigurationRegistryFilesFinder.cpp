#include "kernel/kvProcessInit.h"

#include "manager/ConfigurationRegistryFilesFinder.h"

namespace kivo::configuration {

namespace {

constexpr char const* CONFIGURATION_REGISTRY_FILE_EXTENSION = ".crg";

} // namespace

bool ConfigurationRegistryFilesFinder::visitFile(char const* path) {
    if (endsWith(path, CONFIGURATION_REGISTRY_FILE_EXTENSION)) {
        mPaths.emplace(path);
    }
    return true;
}

ConfigurationRegistryFilesFinder::Paths const& ConfigurationRegistryFilesFinder::getPaths() const { return mPaths; }

} // namespace kivo::configuration
