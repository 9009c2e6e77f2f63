#include "kernel/kvProcessInit.h"

#include "manager/InstallationPaths.h"

#include "kernel/kvDirectories.h"

#include <string.h>

namespace kivo::configuration {

char directorySeparator() {
    static char const separator = kvGetDirSeparatorChar(nullptr);
    return separator;
}

std::string installationDirectory(DirectoryService service) {
    char buffer[1024] = "";
    if (!service(buffer, sizeof(buffer))) {
        return {};
    }
    std::string directory = buffer;
    if (!directory.empty() && directory.back() != directorySeparator()) {
        directory += directorySeparator();
    }
    return directory;
}

std::string describeInstallationDirectory(DirectoryService service) {
    char buffer[1024] = "";
    bool const exists = service(buffer, sizeof(buffer));
    std::string const path(buffer, ::strnlen(buffer, sizeof(buffer)));
    return path.empty() ? "none" : '"' + path + '"' + (exists ? "" : ", no such directory");
}

} // namespace kivo::configuration
