#include "kernel/kvException.h"

#include "KernelTest.h"

namespace {

class Fault : public kvException {
public:
    explicit Fault(char const* message) : mMessage(message) {}
    char const* what() const noexcept override { return mMessage; }

private:
    char const* mMessage;
};

class kvExceptionTest : public KernelTest {};

TEST_F(kvExceptionTest, ConvertsToItsMessage) {
    Fault fault("100 %s");
    EXPECT_STREQ(static_cast<char const*>(fault), "100 %s");
    EXPECT_EQ(fault.get_kind(), -1);
    EXPECT_EQ(fault.asKernelException(), nullptr);
    EXPECT_STREQ(kvException().what(), "Kernel exception");
}

TEST_F(kvExceptionTest, ReportsToTheMainLogWhenEnabled) {
    logTo(at("log"));
    Fault fault("100 %s");
    fault.reportErrors("not enabled");
    EXPECT_FALSE(std::filesystem::exists(at("log")));

    kvException::setEnabled(nullptr, true);
    fault.reportErrors("Loading %d");
    fault.reportErrors("");
    Fault(nullptr).reportErrors(nullptr);
    kvException::setEnabled(nullptr, false);
    EXPECT_EQ(recordsOf(at("log")),
              (std::vector<std::string>{"Kernel|Loading %d: 100 %s", "Kernel|100 %s", "Kernel|"}));
}

} // namespace
