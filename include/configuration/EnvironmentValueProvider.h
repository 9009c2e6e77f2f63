#pragma once

#include <configuration/Export.h>
#include <configuration/ValueProvider.h>

#include <memory>

namespace kivo::configuration {

struct EnvironmentVariables;

/// The values in a program's environment variables. Manager::enableEnvironment() makes one, and gives it its place
/// among the other sources.
///
/// With the prefix "KIVORESTORE", the setting "streams" has the variable "KIVORESTORE_STREAMS", and the setting
/// "directory" of the section "staging" has "KIVORESTORE_STAGING__DIRECTORY": ids are in upper case, and every
/// character but the letters A to Z and the digits is an underscore. Names of variables are compared as they are,
/// letter case included. Hidden settings have variables, too, and so have the former names of settings.
///
/// A variable gives one text, also for a setting that takes several. An empty variable counts as one that is not set. A
/// setting of a section that repeats cannot be given. Variables with the prefix that belong to no setting are ignored;
/// an Inspection reports them.
class KIVO_CONFIGURATION_API EnvironmentValueProvider : public ValueProvider {
public:
    /// See ValueProvider. Of providers with the same priority, those for the environment are asked last.
    explicit EnvironmentValueProvider(int priority);
    ~EnvironmentValueProvider() override;

    /// Manager::ENVIRONMENT_PROVIDER_NAME.
    char const* getName() const override;
    /// As ValueProvider.
    /// @throws ConfigurationException "Settings \"<name>\" and \"<name>\" have the same environment variable
    ///         \"<variable>\"": two ids or former names of the specification differ only in characters that become
    ///         underscores. It is thrown whether or not the variable is set
    /// @throws ConfigurationParameterException "\"<name>\" cannot be given in the environment: \"<section>\" may be
    ///         repeated"
    bool getValues(Specification const* specification, ParameterValueGroup& result, int flags) override;
    void reset() override;
    using ValueProvider::setArguments;
    /// Reads the environment: later changes of it are not seen. A program that runs with raised privileges reads none,
    /// since its caller chose the variables. When the prefix is refused, the variables read before stay. No other
    /// thread may change the environment meanwhile.
    /// @param argument prefix of the variables' names, without an underscore at its end: letters of ASCII, digits and
    ///                 underscores, the first one no digit; copied
    /// @param flags    not used
    /// @throws kivo::ContractViolationException "argument != 0"
    /// @throws ConfigurationException "\"<prefix>\" is not a valid prefix of environment variables"
    void setArguments(char const* argument, int flags) override;

    /// What was read.
    KIVO_CONFIGURATION_LOCAL EnvironmentVariables const& getVariables() const;

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
