#pragma once

#include "kernel/kvContext.h"

#include <string>
#include <vector>

/// Lets a test see in which order a thread switches contexts. Each thread records only what it does itself; while a
/// thread does not record, an event costs one test of a pointer.
///
/// The events, with the contexts made since start() numbered #1, #2, … in the order of their construction:
///
///     new kvContext(200, 500)     a context was constructed
///     delete kvContext            a context was destroyed
///     setCurrentShared(#1)        the context became current; `null` for none, `other` for one made before start()
///     setEnabled(true)            kvException::setEnabled() was called
class kvTrace {
public:
    /// Begins a recording of the calling thread; one that is under way is dropped.
    KIVO_KERNEL_API static void start();

    /// Ends the calling thread's recording and returns its events, oldest first; none when it does not record.
    KIVO_KERNEL_API static std::vector<std::string> stop();

    // The stand-in's side: what happened on the calling thread.
    static void contextMade(kvContext const& context);
    static void contextDeleted();
    static void contextSwitched(kvContext const* context);
    static void reportingSwitched(bool enabled);
};
