#pragma once

#include "kernel/kvContext.h"

#include <memory>

namespace kivo::configuration {

/// Gives the kernel a context of its own for the length of a scope and lets exceptions be reported in it; at the end,
/// however it comes, the context of before is current again. Scopes nest.
class ContextMgr {
public:
    ContextMgr();
    ~ContextMgr();
    ContextMgr(ContextMgr const&) = delete;
    ContextMgr& operator=(ContextMgr const&) = delete;

private:
    /// Leaves the kernel without a context, and restores the one of before.
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
