#include "kernel/kvContext.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"

#include <algorithm>
#include <vector>

// The kernel's contexts, as this executable has them: they write down what is done to them.

namespace {

std::string events;
std::vector<kvContext const*> contexts; // in the order of construction; only their addresses are used
kvContext* currentContext = nullptr;

} // namespace

kvContext::kvContext(unsigned int first, unsigned int second) : mFirstNumber(first), mSecondNumber(second) {
    contexts.push_back(this);
    events += "new(" + std::to_string(first) + "," + std::to_string(second) + ") ";
}

kvContext::~kvContext() { events += "delete "; }

kvContext* kvContext::current(kvSession*) { return currentContext; }

void kvContext::setCurrentShared(kvContext* context) {
    currentContext = context;
    // From the newest on: the address of a context that is gone may have been given to a later one.
    auto const found = std::find(contexts.rbegin(), contexts.rend(), context);
    events += "current(" + std::to_string(contexts.rend() - found) + ") ";
}

bool kvException::setEnabled(kvSession* session, bool enabled) {
    events += session == kvSessionCurrentGetFunction() && enabled ? "enabled " : "? ";
    return false;
}

namespace kivo::test {

namespace {

class ContextScopes : public ManagerTest {};

TEST_F(ContextScopes, NestAndEndOnExceptions) {
    kvContext before(1, 2);
    kvContext::setCurrentShared(&before);
    events.clear();
    EXPECT_EQ(whatOf([] { manager().enableConfiguration(false, "none.xml", 0, nullptr); }).substr(0, 5), "File ");
    kvContext::setCurrentShared(nullptr);
    auto const enter = [](std::string const& name) { return "current(0) new(200,500) current(" + name + ") enabled "; };
    auto const leave = [](std::string const& name) { return "current(0) current(" + name + ") delete "; };
    // For the validators, for the registry, and for the configuration with its file.
    EXPECT_EQ(events, enter("2") + leave("1") + enter("3") + leave("1") + enter("4") + enter("5") + leave("4") +
                          leave("1") + "current(0) ");
}

} // namespace

} // namespace kivo::test
