#pragma once

#include "kernel/kvException.h"

#include <memory>

/// A plug-in found by an extension point. It stays loaded until the process ends, so that what it made can stay too.
class KIVO_KERNEL_API kvPlugin {
public:
    /// The plug-in's entry point "createPlugin".
    using CreateFunction = void* (*)();

    explicit kvPlugin(CreateFunction create);

    /// Calls "createPlugin" once and returns its result. The type and the owner of the result are for the users and
    /// plug-ins of the extension point to agree on; null means that the plug-in offers nothing. Exceptions of the
    /// plug-in pass.
    void* createImplementation();

private:
    CreateFunction mCreate;
};

/// A named place where plug-ins extend the kernel. It searches the plug-ins directory when it is first asked for its
/// plug-ins, not before: a plug-in may call the user of the extension point while it is loaded. To be used by one
/// thread at a time.
///
/// A plug-in is a shared object, a regular file `*.so` anywhere below the directory, that itself exports the unmangled
/// functions `char const* extensionPointName()`, returning the point's name, and `void* createPlugin()`. A file reached
/// by several links is one plug-in. Files that cannot be loaded or lack a function are passed over with a record of
/// category "Kernel" in the main log, plug-ins of other points without one.
class KIVO_KERNEL_API kvExtensionPoint {
public:
    /// @param name         copied; null is empty
    /// @param allowSeveral false: only the first plug-in counts, each further one is passed over with a record
    /// @param optional     false: a record is written when there is no plug-in
    kvExtensionPoint(char const* name, bool allowSeveral, bool optional);
    ~kvExtensionPoint();

    kvExtensionPoint(kvExtensionPoint const&) = delete;
    kvExtensionPoint& operator=(kvExtensionPoint const&) = delete;

    unsigned long getNumberOfPlugins();

    /// The plug-ins in the byte order of their paths; null when there is none at `index`. Owned by the extension point.
    kvPlugin* getPlugin(unsigned long index);

private:
    class __attribute__((visibility("hidden"))) Impl;
    std::unique_ptr<Impl> mImpl;
};
