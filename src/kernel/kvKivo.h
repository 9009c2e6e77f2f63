#pragma once

#include "kernel/kvException.h"

/// The kernel's services to everyone in its process.
class KIVO_KERNEL_API kvKivo {
public:
    /// Adds one record to the main log, or nothing when the log is off or cannot be written; the latter is said on
    /// standard error, once in a process. Records stay whole whichever threads and processes write at the same time.
    /// The call waits at most a second for another writer; after that, the record is dropped.
    /// @param category one word that names who writes; null is empty
    /// @param text     any number of lines without a final newline, written unchanged; null is empty
    static void addToMainLog(char const* category, char const* text);
};
