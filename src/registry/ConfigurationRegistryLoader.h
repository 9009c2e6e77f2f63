#pragma once

namespace kivo::configuration {

/// Reads registry files (".crg"), which declare enumerations, parameters, groups and specifications in XML, and
/// registers what they declare with the Manager. References may name what stands earlier in the file or in files loaded
/// before.
///
/// One loader may load any number of files, one after another, also after a fault. It serves one thread at a time.
class ConfigurationRegistryLoader {
public:
    /// Loads a file and records the outcome in the kernel's main log. The first fault ends the load; what was
    /// registered before it stays.
    /// @param fileName null for a file that does not exist
    /// @throws ConfigurationException          the file does not exist, or does not have the format
    /// @throws ConfigurationParameterException the errors in the XML, one a line
    /// @throws what the factories of the declared objects throw, for example for an id that is taken
    /// What is thrown for a declaration has the place of its element as its origin.
    void loadFile(char const* fileName);
};

} // namespace kivo::configuration
