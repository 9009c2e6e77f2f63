#pragma once

#include "kernel/kvException.h"

/// The kernel's state for a piece of work. Every thread has one session, and every session at most one current context.
class KIVO_KERNEL_API kvContext {
public:
    /// Only the kernel knows what the two numbers mean; here they are stored. The new context does not become the
    /// current one.
    kvContext(unsigned int first, unsigned int second);

    /// The context must no longer be the current one.
    ~kvContext();

    kvContext(kvContext const&) = delete;
    kvContext& operator=(kvContext const&) = delete;

    unsigned int getFirstNumber() const;
    unsigned int getSecondNumber() const;

    /// The current context of a session, not owned by the caller; null when it has none. A null session is the calling
    /// thread's.
    static kvContext* current(kvSession* session);

    /// Makes `context` the current one of the calling thread's session, which does not own it; null leaves it without
    /// one.
    static void setCurrentShared(kvContext* context);

private:
    unsigned int mFirstNumber;
    unsigned int mSecondNumber;
};

/// The calling thread's session, never null. It lives as long as its thread, and only that thread may use it.
KIVO_KERNEL_API kvSession* kvSessionCurrentGetFunction();
