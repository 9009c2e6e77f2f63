#include "kernel/kvContext.h"

#include "kernel/standalone/kvSession.h"

#include <type_traits>

namespace {

constinit thread_local kvSession tSession;
static_assert(std::is_trivially_destructible_v<kvSession>);

} // namespace

kvContext::kvContext(unsigned int first, unsigned int second) : mFirstNumber(first), mSecondNumber(second) {}

kvContext::~kvContext() = default;

unsigned int kvContext::getFirstNumber() const { return mFirstNumber; }

unsigned int kvContext::getSecondNumber() const { return mSecondNumber; }

kvContext* kvContext::current(kvSession* session) { return kvSession::of(session).mContext; }

void kvContext::setCurrentShared(kvContext* context) { tSession.mContext = context; }

kvSession* kvSessionCurrentGetFunction() { return &tSession; }
