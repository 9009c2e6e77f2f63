#pragma once

#include "kernel/kvContext.h"

#include <memory>

namespace kivo::configuration {

/// Makes a new kernel context the current one while a scope lasts, and has exceptions reported in it. At the end of the
/// scope, also when an exception ends it, the previous context is current again. Scopes nest.
class ContextMgr {
public:
    ContextMgr();
    ~ContextMgr();
    ContextMgr(ContextMgr const&) = delete;
    ContextMgr& operator=(ContextMgr const&) = delete;

private:
    /// Leaves the kernel without a current context, and makes the previous one current again at the end.
    class SavedContext {
    public:
        SavedContext();
        ~SavedContext();
        SavedContext(SavedContext const&) = delete;
        SavedContext& operator=(SavedContext const&) = delete;

    private:
        kvContext* mSaved;
    };

    // In this order: the context may only be deleted when it is no longer current.
    std::unique_ptr<kvContext> mContext;
    SavedContext mSavedContext;
    kvSession* mSession;
};

} // namespace kivo::configuration
