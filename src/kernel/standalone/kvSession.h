#pragma once

#include "kernel/kvContext.h"

/// What the stand-in keeps for one thread. It has no destructor to run, so that handlers which run while the process
/// exits can still use the main thread's session.
class kvSession {
public:
    kvContext* mContext = nullptr;
    bool mReportingEnabled = false;

    /// The session meant by an argument: null stands for the calling thread's.
    static kvSession& of(kvSession* session) { return session ? *session : *kvSessionCurrentGetFunction(); }
};
