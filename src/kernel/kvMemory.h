#pragma once

#include "kernel/kvException.h"

#include <cstddef>

/// Memory from the kernel, aligned for any object; null when there is none left. Released with kvsFree().
KIVO_KERNEL_API void* kvsMalloc(std::size_t size);

/// Releases memory of kvsMalloc(); null is allowed.
KIVO_KERNEL_API void kvsFree(void* memory);
