#pragma once

#include <string>
#include <vector>

namespace kivo::configuration {

inline constexpr char const* MAIN_REGISTRY_FILE_NAME = "kivobase.crg";
inline constexpr char const* REGISTRY_FILE_EXTENSION = ".crg";

/// A registry file of an installation.
struct RegistryFile {
    std::string place; ///< its path in the installation, by which files are ordered
    std::string path;  ///< what is read
};

/// Puts files into the order in which they are loaded: the main registry file, then all others by their places, letter
/// case ignored.
void sortInLoadingOrder(std::vector<RegistryFile>& files);

/// All registry files of the installation, in the order in which they are loaded.
std::vector<RegistryFile> findRegistryFiles();

/// Checks that the first of the files is the main registry file.
/// @throws ConfigurationException "Unable to find the kivobase.crg file."
void requireMainRegistry(std::vector<RegistryFile> const& files);

} // namespace kivo::configuration
