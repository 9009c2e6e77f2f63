#pragma once

/// @file
/// What the kernel needs of the library: the base of its manager, and the entry points by which it loads a plug-in.

#include <configuration/Export.h>

namespace kivo::configuration {

/// What the kernel knows of a configuration manager.
class KIVO_CONFIGURATION_API ConfigurationManagerBase {
public:
    /// For derived classes; sets nothing up.
    ConfigurationManagerBase();
    virtual ~ConfigurationManagerBase();

    /// Sets the sources of values up; see Manager::enableConfiguration().
    virtual void enableConfiguration(bool allowMachineConfig, char const* applicationConfigFile, unsigned int argc,
                                     char const* const* argv) = 0;

    ConfigurationManagerBase(ConfigurationManagerBase const&) = delete;
    ConfigurationManagerBase& operator=(ConfigurationManagerBase const&) = delete;
};

} // namespace kivo::configuration

extern "C" {
/// Entry point of the plug-in: the name of the kernel's extension point that the library implements,
/// "Configuration Manager".
KIVO_CONFIGURATION_API char const* extensionPointName();
/// Entry point of the plug-in: the kivo::configuration::Manager singleton, made and loaded if need be. Not to be freed.
KIVO_CONFIGURATION_API void* createPlugin();
}
