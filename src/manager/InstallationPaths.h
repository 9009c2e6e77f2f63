#pragma once

#include <string>

namespace kivo::configuration {

/// One of the kernel's directory services, such as kvGetEtcDir.
using DirectoryService = bool (*)(char* buffer, unsigned int size);

/// The character between the parts of a path, as the kernel says: the slash, since paths are POSIX paths.
char directorySeparator();

/// A directory of the installation with a separator at its end, or an empty text when there is none.
std::string installationDirectory(DirectoryService service);

/// A directory of the installation as messages name it, whether it exists or not.
std::string describeInstallationDirectory(DirectoryService service);

} // namespace kivo::configuration
