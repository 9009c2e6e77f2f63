#pragma once

#include "kernel/kvException.h"

#include <memory>

/// Status of kvLocalExists(): nothing can be reached by the path. Always the whole status, never combined with a bit.
inline constexpr int KV_FILE_MISSING = 2;
/// Bit of the status: a directory.
inline constexpr int KV_FILE_DIRECTORY = 4;
/// Bit of the status: neither a regular file nor a directory (a pipe, socket or device).
inline constexpr int KV_FILE_SPECIAL = 8;

/// What is at a path of the local file system, links followed.
///
/// Missing are also a null or empty path, a link to nowhere or in a circle, a path through something that is no
/// directory, and a path or name too long for the system. What is there but cannot be examined, for example below a
/// directory that the process may not search, counts as an existing file (0), with a record of category "Kernel" in the
/// main log.
/// @return KV_FILE_MISSING, or the bits that apply: 0 for a regular file
KIVO_KERNEL_API int kvLocalExists(char const* path);

/// The entry names of one directory, as they were when it was opened: in byte order, and with "." and ".." where the
/// file system delivers them. Links that lead nowhere are left out, with a record of category "Kernel" in the main log.
/// It holds no descriptor, so any number may be open at once. Used by one thread at a time.
class KIVO_KERNEL_API kvDirListing {
public:
    /// The next name, without the directory; null when none is left. Lives until close().
    virtual char const* next() = 0;

    /// Releases the listing, which must not be used afterwards.
    virtual void close() = 0;

protected:
    ~kvDirListing() = default;
};

/// Lists a directory. The caller releases the listing with its close().
/// @return null when `path` is null, or when the directory cannot be read; then the main log gets a record of category
///         "Kernel"
/// @throws std::bad_alloc memory has run out
KIVO_KERNEL_API kvDirListing* kvLocalOpenDir(char const* path);

/// Closes a listing at the end of a pointer's life.
struct kvDirListingCloser {
    void operator()(kvDirListing* listing) const { listing->close(); }
};
using kvDirListingPointer = std::unique_ptr<kvDirListing, kvDirListingCloser>;
