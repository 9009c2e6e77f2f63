#pragma once

#include "kernel/kvException.h"

/// The kernel's services to everyone in its process.
class KIVO_KERNEL_API kvKivo {
public:
    /// Adds one record to the main log, or nothing when the log is off or cannot be written. Records stay whole
    /// whichever threads and processes write at the same time; the call waits for whoever is writing.
    /// @param category one word that names who writes; null is empty
    /// @param text     any number of lines without a final newline, written unchanged; null is empty
    static void addToMainLog(char const* category, char const* text);
};
