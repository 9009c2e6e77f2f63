#pragma once

#include <configuration/CommandLineStyle.h>
#include <configuration/Export.h>
#include <configuration/ValueProvider.h>

#include <memory>
#include <vector>

namespace kivo::configuration {

struct ArgumentTexts;
struct GnuArguments;

/// The values on a program's command line.
///
/// In the style PLAIN_COMMAND_LINE, an argument that begins with a dash is a flag; its name is the rest after exactly
/// one dash. The argument after it is its value, unless that begins with a dash, too: a value can never begin with a
/// dash, and a negative number is read as a flag. There is no form that joins name and value by an equals sign. White
/// space around every argument is dropped. A flag given again collects several texts. A word that is no flag's value
/// counts as a flag without a value.
///
/// In the style GNU_COMMAND_LINE, setArguments() keeps the arguments, and each request splits them for its
/// specification: docs/command-line.md says how. All that is wrong with them comes with the request.
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
    /// @throws ConfigurationParameterException in GNU_COMMAND_LINE, before all other faults, those of the arguments:
    ///         the text above, "A command line parameter cannot be empty",
    ///         "The \"<argument>\" command line argument is not recognized",
    ///         "The \"<flag>\" flag takes no value", "\"<section>\" is not a parameter",
    ///         "\"<flag>\" cannot be given on the command line: \"<section>\" may be repeated", or
    ///         "... is part of \"<constraint>\""
    ///
    /// In GNU_COMMAND_LINE, help that the specification does not declare is asked for by a value "help" all the same,
    /// as is the version by a value "version"; both are bool and true, and no further provider is to be asked.
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

    /// Says how the arguments of the next setArguments() are written; PLAIN_COMMAND_LINE at first. reset() leaves the
    /// style as it is.
    void setCommandLineStyle(CommandLineStyle style);
    /// Whether "--version" asks for the version, where the style is GNU_COMMAND_LINE and the specification has no
    /// setting of this name. For the arguments of the next setArguments(); false at first.
    void setVersionFlag(bool known);

    /// For a tool's arguments of which some are left out: the index that each of those that the next call of
    /// setArguments() gets had among all of them.
    KIVO_CONFIGURATION_LOCAL void setOriginalIndexes(std::vector<unsigned long> indexes);
    /// The values that the arguments give, named by flags as typed; nothing in GNU style.
    KIVO_CONFIGURATION_LOCAL ParameterValueGroup const& getArguments() const;
    /// The arguments of these values.
    KIVO_CONFIGURATION_LOCAL ArgumentTexts const& getTexts() const;
    /// The arguments, if they are in GNU style; null if they are not.
    KIVO_CONFIGURATION_LOCAL GnuArguments const* getGnuArguments() const;

private:
    KIVO_CONFIGURATION_LOCAL bool getGnuValues(Specification const& specification, ParameterValueGroup& result,
                                               int flags);

    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
