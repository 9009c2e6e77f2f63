#include "kernel/kvDirectories.h"

#include "kernel/kvFiles.h"
#include "kernel/standalone/Environment.h"

#include <cstring>
#include <string>

namespace {

constexpr char SEPARATOR = '/';

/// Where one of the directories is: a variable of its own, else a folder of the home, else where it was installed.
std::string locate(char const* variable, char const* folder, char const* installed) {
    if (auto const* directory = kivo::kernel::environmentValue(variable)) {
        return directory;
    }
    auto const* home = kivo::kernel::environmentValue("KIVO_HOME");
    if (!home) {
        return installed;
    }
    std::string directory = home;
    if (directory.back() != SEPARATOR) {
        directory += SEPARATOR;
    }
    return directory + folder;
}

bool deliver(std::string const& directory, char* buffer, unsigned int size) {
    if (!buffer || directory.size() >= size) {
        return false;
    }
    std::memcpy(buffer, directory.c_str(), directory.size() + 1);
    return (kvLocalExists(buffer) & KV_FILE_DIRECTORY) != 0;
}

} // namespace

bool kvGetEtcDir(char* buffer, unsigned int size) {
    return deliver(locate("KIVO_ETC_DIR", "etc", KIVO_DEFAULT_ETC_DIR), buffer, size);
}

bool kvGetPluginsDir(char* buffer, unsigned int size) {
    return deliver(locate("KIVO_PLUGINS_DIR", "plugins", KIVO_DEFAULT_PLUGINS_DIR), buffer, size);
}

bool kvGetConfigDir(char* buffer, unsigned int size) {
    return deliver(locate("KIVO_CONFIG_DIR", "config", KIVO_DEFAULT_CONFIG_DIR), buffer, size);
}

char kvGetDirSeparatorChar(char const*) { return SEPARATOR; }
