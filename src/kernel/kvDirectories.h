#pragma once

#include "kernel/kvException.h"

/// @file
/// The installation's directories.
///
/// Each `kvGet…Dir` writes a NUL-terminated POSIX path into `buffer`, which holds `size` characters, and returns
/// whether there is such a directory: without one, too, the path is in the buffer, for messages. A path that does not
/// fit leaves the buffer as it was, and counts as none. So does a null buffer. The paths are determined anew at each
/// call; whether they end with a separator is as the installation gives them. Callable from any thread as long as none
/// changes the environment.

/// Where the installation keeps its own registry files.
KIVO_KERNEL_API bool kvGetEtcDir(char* buffer, unsigned int size);

/// The root of the tree of plug-ins.
KIVO_KERNEL_API bool kvGetPluginsDir(char* buffer, unsigned int size);

/// Where the installation's settings are, "machine.config" among them.
KIVO_KERNEL_API bool kvGetConfigDir(char* buffer, unsigned int size);

/// The character between the parts of `path`; null stands for the local file system. It is '/', as in every POSIX path.
KIVO_KERNEL_API char kvGetDirSeparatorChar(char const* path);
