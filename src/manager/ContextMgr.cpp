#include "kernel/kvProcessInit.h"

#include "manager/ContextMgr.h"

namespace kivo::configuration {

ContextMgr::SavedContext::SavedContext() : mSaved(kvContext::current(nullptr)) { kvContext::setCurrentShared(nullptr); }

ContextMgr::SavedContext::~SavedContext() {
    kvContext::setCurrentShared(nullptr);
    kvContext::setCurrentShared(mSaved);
}

ContextMgr::ContextMgr() : mSession(nullptr) {
    mContext = std::make_unique<kvContext>(200u, 500u);
    kvContext::setCurrentShared(mContext.get());
    mSession = kvSessionCurrentGetFunction();
    kvException::setEnabled(mSession, true);
}

ContextMgr::~ContextMgr() = default;

} // namespace kivo::configuration
