#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>
#include <configuration/ValueProvider.h>

#include "providers/ValuePipeline.h"
#include "schema/ContractChecks.h"
#include "text/HelpVisitor.h"
#include "text/UsageVisitor.h"

#include <string>

namespace kivo::configuration {

class ValueProvider::Impl {
public:
    Impl(ValueProvider& owner, int priority) : mOwner(&owner), mPriority(priority) {}

    bool getValues(Specification const* specification, ParameterValueGroup& result, int flags) const;

    ValueProvider* mOwner;
    int mPriority;
    bool mEnabled = false;
    ParameterValueGroup mDataCache{nullptr};
    std::string mUsageMessage;
    std::string mHelpMessage;
};

bool ValueProvider::Impl::getValues(Specification const* specification, ParameterValueGroup& result, int flags) const {
    KIVO_REQUIRE(specification != 0);
    return ValuePipeline(*specification, flags).addSource(mOwner, mDataCache, result);
}

ValueProvider::ValueProvider(int priority) : mImpl(std::make_unique<Impl>(*this, priority)) {}

ValueProvider::~ValueProvider() = default;

bool ValueProvider::getValues(Specification const* specification, ParameterValueGroup& result, int flags) {
    return mImpl->getValues(specification, result, flags);
}

char const* ValueProvider::composeHelpMessage(Specification const* specification, unsigned long screenWidth,
                                              unsigned long maxParameterNameWidth) const {
    KIVO_REQUIRE(specification != 0);
    KIVO_REQUIRE(screenWidth > 0);
    KIVO_REQUIRE(maxParameterNameWidth < screenWidth);
    HelpVisitor visitor(screenWidth, maxParameterNameWidth);
    specification->getParameterGroup()->accept(visitor);
    mImpl->mHelpMessage = visitor.getHelp();
    return mImpl->mHelpMessage.c_str();
}

char const* ValueProvider::composeUsageMessage(Specification const* specification) const {
    KIVO_REQUIRE(specification != 0);
    UsageVisitor visitor;
    specification->getParameterGroup()->accept(visitor);
    mImpl->mUsageMessage = visitor.getUsage();
    return mImpl->mUsageMessage.c_str();
}

void ValueProvider::reset() {
    mImpl->mEnabled = false;
    mImpl->mDataCache = ParameterValueGroup(nullptr);
    mImpl->mUsageMessage.clear();
    mImpl->mHelpMessage.clear();
}

void ValueProvider::setArguments(ParameterValueGroup const&, int) {
    throw ConfigurationException("setArguments(const ParameterValueGroup&) is not supported");
}

void ValueProvider::setArguments(char const*, int) {
    throw ConfigurationException("setArguments(const char*) is not supported");
}

void ValueProvider::setArguments(int, char const* const*, int) {
    throw ConfigurationException("setArguments(int, const char*) is not supported");
}

int ValueProvider::getPriority() const { return mImpl->mPriority; }

bool ValueProvider::getEnabled() const { return mImpl->mEnabled; }

void ValueProvider::enableProvider(ParameterValueGroup const& values, int flags) {
    setArguments(values, flags);
    mImpl->mEnabled = true;
}

void ValueProvider::enableProvider(char const* argument, int flags) {
    setArguments(argument, flags);
    mImpl->mEnabled = true;
}

void ValueProvider::enableProvider(int argc, char const* const* argv, int flags) {
    setArguments(argc, argv, flags);
    mImpl->mEnabled = true;
}

ParameterValueGroup& ValueProvider::getDataCache() { return mImpl->mDataCache; }

ParameterValueGroup const& ValueProvider::getDataCache() const { return mImpl->mDataCache; }

void ValueProvider::setDataCache(ParameterValueGroup const& values) { mImpl->mDataCache = values; }

} // namespace kivo::configuration
