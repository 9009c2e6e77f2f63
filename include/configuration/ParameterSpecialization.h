#pragma once

#include <configuration/Export.h>
#include <configuration/Parameter.h>

namespace kivo::configuration {

/// A registered parameter with another description, default, visibility or number of occurrences, for use in one place.
///
/// Shares id, name, value type, value name, validator, bounds and marks with its base, and the enumeration when it is
/// made by Create(). The validator configuration of the base is not carried over.
class KIVO_CONFIGURATION_API ParameterSpecialization : public Parameter {
public:
    /// Builds a specialization without registering it; tools use Create().
    /// @param base         the parameter to refine; only read during the call
    /// @param description  help text, or null for the base's
    /// @param optional     whether a user may leave it out
    /// @param unbounded    whether it may be given several values
    /// @param defaultValue text as a user would type it, or null
    /// @param hidden       whether usage and help texts leave it out
    /// @throws kivo::ContractViolationException "base != 0"
    /// @throws ConfigurationException, ConfigurationParameterException as Parameter::Create()
    ParameterSpecialization(Parameter const* base, char const* description, bool optional, bool unbounded,
                            char const* defaultValue, bool hidden);
    ~ParameterSpecialization() override;

    /// True.
    bool isSpecialized() const override;

    /// Refines the parameter registered under an id. The Manager owns the result, which has no key of its own: look-ups
    /// of the id go on to find the base.
    /// @param defaultValue null takes over the base's default
    /// @return the specialization, to be added to a group
    /// @throws kivo::ContractViolationException "id != 0", "objectKey != 0 && *objectKey != '\0'"
    /// @throws ConfigurationException "Parameter to specialize \"<id>\" was not found",
    ///         "Invalid item type. Expected: 0, found: 1", "Duplicate item \"<id>\"", and what Parameter::Create()
    ///         throws for validator and default
    static ParameterSpecialization* Create(char const* id, char const* description, bool optional, bool unbounded,
                                           char const* defaultValue, bool hidden);

private:
    KIVO_CONFIGURATION_LOCAL ParameterSpecialization(Parameter const& base, char const* description, bool optional,
                                                     bool unbounded, char const* defaultValue, bool hidden);
};

} // namespace kivo::configuration
