#pragma once

#include <string>
#include <vector>

/// The paths of all shared objects (regular files `*.so`, links followed) below a directory, in byte order. Each file
/// and each directory counts once, by its smallest path, however many links lead to it; what cannot be read is left
/// out.
std::vector<std::string> kvFindPluginFiles(std::string const& root);
