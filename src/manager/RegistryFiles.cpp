#include "kernel/kvProcessInit.h"

#include "manager/RegistryFiles.h"

#include <configuration/ConfigurationException.h>

#include "kernel/kvDirectories.h"
#include "manager/ConfigurationRegistryFilesFinder.h"
#include "manager/InstallationPaths.h"

#include <algorithm>

namespace kivo::configuration {

namespace {

bool isMainRegistry(RegistryFile const& file) {
    auto const separator = file.place.rfind(directorySeparator());
    return separator != std::string::npos &&
           equalIgnoringCase(std::string_view(file.place).substr(separator + 1), MAIN_REGISTRY_FILE_NAME);
}

} // namespace

void sortInLoadingOrder(std::vector<RegistryFile>& files) {
    std::ranges::stable_sort(files, CaseInsensitiveLess(), &RegistryFile::place);
    auto const main = std::ranges::find_if(files, isMainRegistry);
    if (main != files.end()) {
        std::rotate(files.begin(), main, main + 1);
    }
}

std::vector<RegistryFile> findRegistryFiles() {
    ConfigurationRegistryFilesFinder finder;
    if (auto const etc = installationDirectory(kvGetEtcDir); !etc.empty()) {
        finder.scan(etc.c_str(), false);
    }
    if (auto const plugins = installationDirectory(kvGetPluginsDir); !plugins.empty()) {
        finder.scan(plugins.c_str(), true);
    }
    std::vector<RegistryFile> files;
    for (auto const& path : finder.getPaths()) {
        files.push_back({path, path});
    }
    sortInLoadingOrder(files);
    return files;
}

void requireMainRegistry(std::vector<RegistryFile> const& files) {
    if (files.empty() || !isMainRegistry(files.front())) {
        throw ConfigurationException("Unable to find the %s file.", MAIN_REGISTRY_FILE_NAME);
    }
}

} // namespace kivo::configuration
