#include "kernel/kvProcessInit.h"

#include <configuration/ApplicationValuesProvider.h>
#include <configuration/Manager.h>
#include <configuration/ParameterValueGroup.h>

#include "providers/ProviderOrigins.h"
#include "schema/StoredOrigin.h"

namespace kivo::configuration {

ApplicationValuesProvider::ApplicationValuesProvider(int priority) : ValueProvider(priority) {}

ApplicationValuesProvider::~ApplicationValuesProvider() = default;

char const* ApplicationValuesProvider::getName() const { return Manager::APPLICATION_PROVIDER_NAME; }

void ApplicationValuesProvider::setArguments(ParameterValueGroup const& values, int) {
    setDataCache(values);
    fillOrigins(getDataCache(), StoredOrigin::ofApplication());
}

} // namespace kivo::configuration
