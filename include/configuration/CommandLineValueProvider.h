#pragma once

#include <configuration/Export.h>
#include <configuration/ValueProvider.h>

#include <memory>
#include <vector>

namespace kivo::configuration {

/// The values on a program's command line.
///
/// An argument that begins with a dash is a flag; its name is the rest after exactly one dash. The argument after it is
/// its value, unless that begins with a dash, too: a value can never begin with a dash, and a negative number is read
/// as a flag. There is no form that joins name and value by an equals sign. White space around every argument is
/// dropped. A flag given again collects several texts. A word that is no flag's value counts as a flag without a value.
class KIVO_CONFIGURATION_API CommandLineValueProvider : public ValueProvider {
public:
    /// See ValueProvider.
    explicit CommandLineValueProvider(int priority);
    ~CommandLineValueProvider() override;

    /// Manager::COMMAND_LINE_PROVIDER_NAME.
    char const* getName() const override;
    /// As ValueProvider. With RESOLVE_FLAG_NAMES, a flag may be any beginning of the name of a parameter that is not
    /// hidden; it must be the beginning of only one, even when it is a full name.
    /// @throws kivo::ContractViolationException "specification != 0"; for a specification without an id
    ///         "parameterItemId != 0 && *parameterItemId != '\0'"
    /// @throws ConfigurationException "The flag \"<flag>\" is ambiguous, matching the following allowed flags: <names>.
    ///         Please be more specific."
    bool getValues(Specification const* specification, ParameterValueGroup& result, int flags) override;
    void reset() override;
    using ValueProvider::setArguments;
    /// Parses the arguments; argv[0] is passed over. On an exception the arguments parsed before stay.
    /// @param argc  number of arguments
    /// @param argv  the arguments, copied; a null one counts as empty
    /// @param flags STRICT_RECOGNITION makes a word that is no flag's value an error
    /// @throws ConfigurationException "A command line parameter cannot be empty" (a lone dash),
    ///         "The \"<argument>\" command line argument is not recognized"
    /// @throws kivo::ContractViolationException "parameterItemId != 0 && *parameterItemId != '\0'": an empty argument
    ///         that is no flag's value
    void setArguments(int argc, char const* const* argv, int flags) override;
    /// Forgets a flag that the tool has handled itself.
    /// @param specification the specification that the flag belongs to, not null
    /// @param parameterName the flag as typed, without its dash; letter case is ignored
    /// @return whether it was there
    /// @throws kivo::ContractViolationException "specification != 0",
    ///         "parameterName != 0 && *parameterName != '\0'"
    virtual bool removeParameter(Specification const* specification, char const* parameterName);

    /// For a tool's arguments of which some are left out: the index that each of those that the next call of
    /// setArguments() gets had among all of them.
    KIVO_CONFIGURATION_LOCAL void setOriginalIndexes(std::vector<unsigned long> indexes);
    /// The values that the arguments give, named by flags as typed.
    KIVO_CONFIGURATION_LOCAL ParameterValueGroup const& getArguments() const;

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
