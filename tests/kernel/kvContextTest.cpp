#include "kernel/kvContext.h"

#include "kernel/standalone/kvTrace.h"

#include <gmock/gmock.h>
#include <thread>

namespace {

TEST(kvContextTest, ContextReportingAndTraceBelongToTheThread) {
    kvContext context(1, 2);
    kvTrace::start();
    kvSession* const session = kvSessionCurrentGetFunction();
    kvContext::setCurrentShared(&context);
    kvException::setEnabled(session, true);
    std::thread([session] {
        static thread_local kvContext outlivesTheTrace(3, 4);
        kvTrace::start();
        EXPECT_NE(kvSessionCurrentGetFunction(), session);
        EXPECT_EQ(kvContext::current(nullptr), nullptr);
        EXPECT_FALSE(kvException::setEnabled(nullptr, true));
        kvContext::setCurrentShared(&outlivesTheTrace);
    }).join();
    EXPECT_EQ(kvContext::current(session), &context);
    EXPECT_TRUE(kvException::setEnabled(nullptr, false));
    EXPECT_THAT(kvTrace::stop(),
                testing::ElementsAre("setCurrentShared(other)", "setEnabled(true)", "setEnabled(false)"));
    kvContext::setCurrentShared(nullptr);
    EXPECT_THAT(kvTrace::stop(), testing::IsEmpty());
}

} // namespace
