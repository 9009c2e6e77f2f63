#pragma once

#include "kernel/kvException.h"

/// Initialises the kernel's services for this process. Cheap, callable any number of times and from any thread.
/// @return whether the services can be used
KIVO_KERNEL_API bool kvProcessInit();

// A source unit that includes this header before any other has the kernel initialised ahead of its own statics: objects
// of one unit are initialised in the order of their definitions, so each unit needs a definition of its own.
namespace {
[[maybe_unused]] bool const kvProcessInitialised = kvProcessInit();
} // namespace
