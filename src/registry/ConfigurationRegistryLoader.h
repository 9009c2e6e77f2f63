#pragma once

#include <memory>

namespace kivo::configuration {

/// Reads registry files (".crg"), which declare enumerations, parameters, groups and specifications in XML, and
/// registers what they declare with the Manager. References may name what stands earlier in the file or in files loaded
/// before.
///
/// One thread at a time. The loader keeps nothing of a file.
class ConfigurationRegistryLoader {
public:
    ConfigurationRegistryLoader();
    ~ConfigurationRegistryLoader();

    ConfigurationRegistryLoader(ConfigurationRegistryLoader const&) = delete;
    ConfigurationRegistryLoader& operator=(ConfigurationRegistryLoader const&) = delete;

    /// Loads a file and records the outcome in the kernel's main log. The first fault ends the load; what was
    /// registered before it stays.
    /// @throws ConfigurationException          the file does not exist, or does not have the format
    /// @throws ConfigurationParameterException the faults of XML, one a line
    /// @throws what the factories of the declared objects throw, ids that are taken among it
    void loadFile(char const* fileName);

private:
    class Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
