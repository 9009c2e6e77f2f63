#pragma once

#include "kernel/kvException.h"

/// @file
/// The installation's directories.
///
/// Each `kvGet…Dir` writes a NUL-terminated path into `buffer`, which holds `size` characters, and returns true. It
/// returns false and leaves the buffer as it was when the directory does not exist, when its path does not fit, or when
/// `buffer` is null. The paths are asked anew at each call; whether they end with a separator is as the installation
/// gives them. Callable from any thread as long as none changes the environment.

/// Where the installation keeps its own registry files.
KIVO_KERNEL_API bool kvGetEtcDir(char* buffer, unsigned int size);

/// The root of the tree of plug-ins.
KIVO_KERNEL_API bool kvGetPluginsDir(char* buffer, unsigned int size);

/// Where the installation's settings are, "machine.config" among them.
KIVO_KERNEL_API bool kvGetConfigDir(char* buffer, unsigned int size);

/// The character between the parts of `path`; null asks for that of the local file system.
KIVO_KERNEL_API char kvGetDirSeparatorChar(char const* path);
