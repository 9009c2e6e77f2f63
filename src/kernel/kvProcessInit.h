#pragma once

#include "kernel/kvException.h"

/// Initialises the kernel's services for this process. Cheap, callable any number of times and from any thread.
/// @return whether the services can be used
KIVO_KERNEL_API bool kvProcessInit();

// A source that includes this header before any other has the kernel initialised before its own static objects. Each
// source needs a definition of its own: only the objects of one source are initialised in the order of definitions.
namespace {
[[maybe_unused]] bool const kvProcessInitialised = kvProcessInit();
} // namespace
