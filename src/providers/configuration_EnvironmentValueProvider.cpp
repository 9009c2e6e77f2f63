#include "kernel/kvProcessInit.h"

#include <configuration/EnvironmentValueProvider.h>
#include <configuration/Manager.h>
#include <configuration/ParameterErrors.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include "providers/EnvironmentNames.h"
#include "providers/EnvironmentVariables.h"
#include "schema/ContractChecks.h"

namespace kivo::configuration {

class EnvironmentValueProvider::Impl {
public:
    EnvironmentVariables mEnvironment;
};

EnvironmentValueProvider::EnvironmentValueProvider(int priority)
    : ValueProvider(priority), mImpl(std::make_unique<Impl>()) {}

EnvironmentValueProvider::~EnvironmentValueProvider() = default;

char const* EnvironmentValueProvider::getName() const { return Manager::ENVIRONMENT_PROVIDER_NAME; }

bool EnvironmentValueProvider::getValues(Specification const* specification, ParameterValueGroup& result, int flags) {
    KIVO_REQUIRE(specification != 0);
    ParameterErrors faults;
    auto values = EnvironmentNames(*specification->getParameterGroup(), mImpl->mEnvironment.prefix)
                      .assign(mImpl->mEnvironment.variables, faults);
    faults.throwIfErrors();
    setDataCache(ParameterValueGroup(nullptr));
    getDataCache().addItem(values.release());
    return ValueProvider::getValues(specification, result, flags);
}

void EnvironmentValueProvider::reset() {
    mImpl->mEnvironment = {};
    ValueProvider::reset();
}

void EnvironmentValueProvider::setArguments(char const* argument, int) {
    KIVO_REQUIRE(argument != 0);
    mImpl->mEnvironment = readEnvironment(argument);
}

EnvironmentVariables const& EnvironmentValueProvider::getVariables() const { return mImpl->mEnvironment; }

} // namespace kivo::configuration
