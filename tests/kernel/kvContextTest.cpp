#include "kernel/kvContext.h"

#include "kernel/standalone/kvTrace.h"

#include <gtest/gtest.h>
#include <memory>
#include <thread>

namespace {

TEST(kvContextTest, CurrentContextAndReportingBelongToTheThread) {
    kvContext context(200, 500);
    EXPECT_EQ(context.getFirstNumber(), 200u);
    EXPECT_EQ(context.getSecondNumber(), 500u);

    kvSession* const session = kvSessionCurrentGetFunction();
    EXPECT_EQ(kvContext::current(nullptr), nullptr);
    kvContext::setCurrentShared(&context);
    EXPECT_FALSE(kvException::setEnabled(session, true));
    EXPECT_TRUE(kvException::setEnabled(nullptr, true));

    std::thread([session] {
        EXPECT_NE(kvSessionCurrentGetFunction(), session);
        EXPECT_EQ(kvContext::current(nullptr), nullptr);
        EXPECT_FALSE(kvException::isEnabled(nullptr));
    }).join();

    EXPECT_EQ(kvSessionCurrentGetFunction(), session);
    EXPECT_EQ(kvContext::current(nullptr), &context);
    EXPECT_EQ(kvContext::current(session), &context);
    EXPECT_TRUE(kvException::isEnabled(session));

    kvContext::setCurrentShared(nullptr);
    EXPECT_TRUE(kvException::setEnabled(session, false));
    EXPECT_FALSE(kvException::isEnabled(nullptr));
}

TEST(kvTraceTest, RecordsTheThreadsOwnSwitchesInOrder) {
    kvContext older(1, 2);
    kvTrace::start();
    auto outer = std::make_unique<kvContext>(200, 500);
    kvContext::setCurrentShared(outer.get());
    {
        kvContext const inner(3, 4);
        kvContext::setCurrentShared(nullptr);
        kvContext::setCurrentShared(const_cast<kvContext*>(&inner));
        kvException::setEnabled(kvSessionCurrentGetFunction(), true);
    }
    std::thread([] { kvException::setEnabled(nullptr, true); }).join();
    kvContext::setCurrentShared(outer.get());
    kvContext::setCurrentShared(&older);
    kvContext::setCurrentShared(nullptr);
    outer.reset();
    kvException::setEnabled(nullptr, false);

    EXPECT_EQ(kvTrace::stop(),
              (std::vector<std::string>{"new kvContext(200, 500)", "setCurrentShared(#1)", "new kvContext(3, 4)",
                                        "setCurrentShared(null)", "setCurrentShared(#2)", "setEnabled(true)",
                                        "delete kvContext", "setCurrentShared(#1)", "setCurrentShared(other)",
                                        "setCurrentShared(null)", "delete kvContext", "setEnabled(false)"}));

    kvContext const unseen(5, 6);
    EXPECT_EQ(kvTrace::stop(), std::vector<std::string>{});
}

TEST(kvTraceTest, StartDropsTheRecordingUnderWay) {
    kvTrace::start();
    kvContext const dropped(1, 1);
    kvTrace::start();
    kvContext context(2, 2);
    kvContext::setCurrentShared(&context);
    kvContext::setCurrentShared(nullptr);
    EXPECT_EQ(kvTrace::stop(),
              (std::vector<std::string>{"new kvContext(2, 2)", "setCurrentShared(#1)", "setCurrentShared(null)"}));
}

TEST(kvTraceTest, MayStillBeRunningWhenItsThreadEnds) {
    std::thread([] {
        static thread_local kvContext outlivesTheRecording(1, 2);
        kvTrace::start();
        kvContext::setCurrentShared(&outlivesTheRecording);
    }).join();
    EXPECT_EQ(kvTrace::stop(), std::vector<std::string>{});
}

} // namespace
