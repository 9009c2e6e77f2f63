#include "kernel/kvProcessInit.h"

#include <configuration/ApplicationValuesProvider.h>
#include <configuration/Manager.h>

namespace kivo::configuration {

ApplicationValuesProvider::ApplicationValuesProvider(int priority) : ValueProvider(priority) {}

ApplicationValuesProvider::~ApplicationValuesProvider() = default;

char const* ApplicationValuesProvider::getName() const { return Manager::APPLICATION_PROVIDER_NAME; }

void ApplicationValuesProvider::setArguments(ParameterValueGroup const& values, int) { setDataCache(values); }

} // namespace kivo::configuration
