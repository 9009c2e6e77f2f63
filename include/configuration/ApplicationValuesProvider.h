#pragma once

#include <configuration/Export.h>
#include <configuration/ValueProvider.h>

namespace kivo::configuration {

/// The values that the application sets in code. Made by Manager::setApplicationValues() with priority 0, so that they
/// win over all others.
class KIVO_CONFIGURATION_API ApplicationValuesProvider : public ValueProvider {
public:
    /// See ValueProvider.
    explicit ApplicationValuesProvider(int priority);
    ~ApplicationValuesProvider() override;

    /// Manager::APPLICATION_PROVIDER_NAME.
    char const* getName() const override;
    using ValueProvider::setArguments;
    /// Replaces the cache by a copy of the values; the flags are not used.
    void setArguments(ParameterValueGroup const& values, int flags) override;
};

} // namespace kivo::configuration
