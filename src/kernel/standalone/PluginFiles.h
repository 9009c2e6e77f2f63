#pragma once

#include <string>
#include <vector>

namespace kivo::kernel {

/// The paths of all shared objects (regular files `*.so`, links followed) below a directory, in byte order. Each file
/// and each directory counts once, by its smallest path, however many links lead to it. What cannot be read is left
/// out, with a record in the main log.
std::vector<std::string> findPluginFiles(std::string const& root);

} // namespace kivo::kernel
