#pragma once

#include <configuration/CommandLineStyle.h>
#include <configuration/ConfigurationManagerBase.h>
#include <configuration/Export.h>
#include <configuration/ParameterItem.h>

#include <atomic>
#include <memory>

/// Settings that are described once, given from several sources, merged, checked, and explained to users. Manager is
/// the front door.
namespace kivo::configuration {

class ParameterEnumDefinition;
class ParameterValidator;
class ParameterValueGroup;
class ParameterValueItem;
class Specification;
class ValueGroup;
class ValueGroupIterator;
class ValueProvider;

/// The front door: registers what may be configured, collects values, and hands out settings.
///
/// There is one Manager in a process. It owns everything that is registered with it until reset(), shutdown() or its
/// destruction. Keys (ids, names) are compared ignoring letter case. A duplicate key is accepted when it is registered
/// and reported when it is looked up.
///
/// Only getInstance() and shutdown() are synchronized: configuration is set up and asked for by one thread at a time.
/// Values that were handed out may be read by any number of threads.
class KIVO_CONFIGURATION_API Manager : public ConfigurationManagerBase {
public:
    /// "CLI": the name of the command-line provider.
    static char const* const COMMAND_LINE_PROVIDER_NAME;
    /// "XML_FILE": the name of the provider of a values file.
    static char const* const XML_FILE_PROVIDER_NAME;
    /// "APP_VALUES": the name of the provider of the application's own values.
    static char const* const APPLICATION_PROVIDER_NAME;
    /// "ENVIRONMENT": the name of the provider of environment variables.
    static char const* const ENVIRONMENT_PROVIDER_NAME;

    /// An empty manager beside the singleton: no validators, nothing loaded.
    Manager();
    /// Destroys all that is registered.
    ~Manager() override;

    /// The manager of the process. The first call makes it, registers the default validators, loads the default
    /// registry and registers shutdown() with `atexit`; any number of threads may call it at once.
    ///
    /// The manager is published before it is loaded, because what is loaded asks for it. A call on another thread waits
    /// only for the first moments of the first call; then it returns at once, also while the manager is still being
    /// loaded. So let the first call return before another thread uses the manager.
    ///
    /// When loading throws, the exception reaches the caller, but the manager stays, with what was loaded before the
    /// failure, and later calls return it.
    static Manager* getInstance();
    /// Destroys the manager of the process, if there is one, and all it owns; the next getInstance() makes a new one.
    static void shutdown();

    /// Discards what is registered, destroys the providers and cached values, and loads the default validators and the
    /// default registry again. All handles become invalid. The command line is PLAIN_COMMAND_LINE again, and there is
    /// no version text.
    void reset();

    /// @name Registration. The manager takes ownership.
    /// @{

    /// Registers a specification under its id. If its group is registered, the former names in it are checked: none may
    /// be an id or name in the group, or a former name of another parameter there. Whoever calls keeps what is refused.
    /// @throws kivo::ContractViolationException "specification != 0", "objectKey != 0 && *objectKey != '\0'"
    /// @throws ConfigurationException "Former name \"<former>\" of parameter \"<name>\" is taken by \"<name>\""
    void registerSpecification(Specification* specification);
    /// Registers a parameter or group under its id; the factories do so.
    /// @throws kivo::ContractViolationException "item != 0", "objectKey != 0 && *objectKey != '\0'"
    void addParameterItem(ParameterItem* item);
    /// Takes over a specialization, which has no key of its own; the factories do so.
    /// @throws kivo::ContractViolationException "specialization != 0"
    void addParameterItemSpecialization(ParameterItem* specialization);
    /// Registers labels under the name of their definition.
    /// @throws kivo::ContractViolationException "enumDefinition != 0", "objectKey != 0 && *objectKey != '\0'"
    void registerEnumDefinition(ParameterEnumDefinition* enumDefinition);
    /// Registers a validator under its name.
    /// @throws kivo::ContractViolationException "validator != 0", "objectKey != 0 && *objectKey != '\0'"
    void addValidator(ParameterValidator* validator);
    /// Adds a source of values; sources of equal priority are asked in the order of registration. Values that are
    /// cached already stay as they are.
    /// @throws kivo::ContractViolationException "valueProvider != 0"
    void registerProvider(ValueProvider* valueProvider);
    /// Registers the built-in validators and those that plug-ins offer. The singleton has them already: registered
    /// again, they are duplicates, which look-ups report.
    void registerDefaultValidators();
    /// @}

    /// @name Look-up. Results stay owned by the manager; null: not found.
    /// @{

    /// The specification of an id.
    /// @throws kivo::ContractViolationException "objectKey != 0 && *objectKey != '\0'"
    /// @throws ConfigurationException "Duplicate specification \"<name>\""
    Specification* getSpecification(char const* name) const;
    /// The parameter or group of an id.
    /// @throws kivo::ContractViolationException "id != 0", "objectKey != 0 && *objectKey != '\0'"
    /// @throws ConfigurationException "Duplicate item \"<id>\""
    ParameterItem* getParameterItem(char const* id) const;
    /// As above, for an item of one kind.
    /// @throws ConfigurationException "Invalid item type. Expected: <type>, found: <type>", as numbers
    ParameterItem* getParameterItem(char const* id, ParameterItem::ItemType type) const;
    /// The labels of a name.
    /// @throws kivo::ContractViolationException "objectKey != 0 && *objectKey != '\0'"
    /// @throws ConfigurationException "Duplicate enumeration \"<name>\""
    ParameterEnumDefinition* getEnumDefinition(char const* name) const;
    /// The validator of a name.
    /// @throws kivo::ContractViolationException "name != 0", "objectKey != 0 && *objectKey != '\0'"
    /// @throws ConfigurationException "Duplicate validator \"<name>\""
    ParameterValidator* getValidator(char const* name) const;
    /// The provider at a position, in the order in which they are asked.
    /// @throws kivo::ContractViolationException "index < getNumberOfProviders()"
    ValueProvider* getProvider(unsigned long index);
    /// The number of providers, enabled or not.
    unsigned long getNumberOfProviders() const;
    /// The number of specifications, duplicates counted.
    unsigned long getNumberOfSpecifications() const;
    /// The specification at a position, counted from 0 in the order of registration.
    /// @throws kivo::ContractViolationException "index < getNumberOfSpecifications()"
    Specification* getSpecificationAt(unsigned long index) const;
    /// The number of validators, duplicates counted.
    unsigned long getNumberofValidators() const;
    /// @}

    /// @name Values
    /// Of two sources for one setting, the one asked first wins; a setting that may have several values collects those
    /// of all. `flags` are RESOLVE_FLAG_NAMES and STRICT_RECOGNITION.
    ///
    /// Settings that are given by a former name, or that are deprecated, make records of the category "Kernel" in the
    /// kernel's main log, one for each setting in a call that asks the providers.
    /// @{

    /// Collects the values of a specification from all enabled providers, checks and completes them.
    /// @param specification what values are asked for
    /// @param result        receives the specification's group; it is not emptied first
    /// @param flags         passed to the providers
    /// @throws kivo::ContractViolationException "specification != 0"
    /// @throws ConfigurationParameterException all faults of the first phase that found any
    /// @throws ConfigurationException an ambiguous flag; a value where a group belongs or the other way round; a
    ///         specification without its root group
    ///
    /// When a source asks for "help", the sources after it are not asked. The group then holds "help" (with "quiet" and
    /// "notitle", if they are set) and what was collected before, unchecked and without defaults. The same happens when
    /// the command line asks for the version (see setVersionText()): the group then holds "version".
    void getValues(Specification const* specification, ParameterValueGroup& result, int flags);
    /// As above, by name.
    /// @throws ConfigurationException "Specification \"<name>\" was not found", "Duplicate specification \"<name>\""
    void getValues(char const* specificationName, ParameterValueGroup& result, int flags);
    /// Checks and completes a tree that the caller built, and replaces it by the result. The providers are not asked.
    /// @param specification what the values are for, not null
    /// @param values        an unnamed group that holds the group named by the specification's id
    /// @param flags         STRICT_RECOGNITION
    /// @throws kivo::ContractViolationException "specification != 0"
    /// @throws ConfigurationParameterException all faults of the first phase that found any. The tree then is as far
    ///         as the phases before left it: bound, and split under its constraints. When the values ask for "help",
    ///         it is left bound, without further checks.
    /// @throws ConfigurationException what getValues() throws
    void validateValues(Specification const* specification, ParameterValueGroup& values, int flags);
    /// The settings of a specification. They are collected once, and kept until setApplicationValues(), reset() or
    /// shutdown(): until then, sources that are added later are not seen.
    /// @param name     id of the specification
    /// @param required whether it is an error when no value was given at all; if it is not, the handle is null and
    ///                 nothing is kept
    /// @param flags    passed to the providers
    /// @throws kivo::ContractViolationException "objectKey != 0 && *objectKey != '\0'"
    /// @throws ConfigurationException "The \"<name>\" group was not found", and as getValues()
    ValueGroup getValueGroup(char const* name, bool required, int flags) const;
    /// The occurrences of a specification whose root group repeats; as getValueGroup().
    ValueGroupIterator getValueGroupIterator(char const* name, int flags) const;
    /// Sets the application's own values, which win over all others and replace those of an earlier call. Forgets the
    /// kept settings: all handles become invalid.
    /// @param values an unnamed group that holds the group of one specification, named by its id; copied. A group of
    ///               another specification beside it makes every request fail.
    /// @param flags  passed to the provider
    void setApplicationValues(ParameterValueGroup const& values, int flags);
    /// @}

    /// @name Texts. Each lives until the next call of the same operation.
    /// @{

    /// An indented text of a schema item and all below it, for diagnosis. The buffer is shared by the process.
    char const* getRepresentation(ParameterItem const& item) const;
    /// An indented text of a value item and all below it, for diagnosis. The buffer is shared by the process.
    char const* getRepresentation(ParameterValueItem const& item) const;
    /// The usage text of a specification; see ValueProvider::composeUsageMessage().
    /// @param providerName      name of the provider that composes it; a command-line provider when there is none
    /// @param specificationName id of the specification
    /// @throws kivo::ContractViolationException "providerName != 0 && strlen(providerName) > 0",
    ///         "specificationName != 0 && strlen( specificationName) > 0"
    /// @throws ConfigurationException "Specification \"<name>\" was not found"
    char const* composeUsageMessage(char const* providerName, char const* specificationName) const;
    /// The help text of a specification; see ValueProvider::composeHelpMessage() and composeUsageMessage().
    char const* composeHelpMessage(char const* providerName, char const* specificationName, unsigned long screenWidth,
                                   unsigned long maxParameterNameWidth) const;
    /// A text about all settings of a specification that are not hidden, for a tool's help: each with its description,
    /// default, labels or bounds, whether it is required, deprecated, secret (then without its default), may be given
    /// several times, and its environment variable, where one is enabled. Its own settings come first, then those of
    /// each section under a heading; alternatives of an exclusive choice stand together. Flags are written in the style
    /// of the tool's command line; a setting that no flag can give has its full name.
    ///
    /// No line ends with a blank. Texts are shown with their controls escaped as in C. Columns are counted as terminals
    /// show UTF-8, whatever the locale of the process is.
    /// @param specificationName id of the specification
    /// @param width             columns of a line; names may be wider, and a line has at least one character. 0: as
    ///                          many as the terminal on standard output has; without a terminal, as the
    ///                          environment variable COLUMNS says, or else 80
    /// @throws kivo::ContractViolationException "specificationName != 0 && strlen( specificationName) > 0"
    /// @throws ConfigurationException "Specification \"<name>\" was not found"; as EnvironmentValueProvider for
    ///         two settings with one variable
    char const* composeDetailedHelp(char const* specificationName, unsigned long width) const;
    /// @}

    /// @name Installation and files
    /// @{

    /// Says how the command lines of the next calls of enableConfiguration() are written. PLAIN_COMMAND_LINE at first.
    void setCommandLineStyle(CommandLineStyle style);
    /// Sets what "--version" prints, for the next calls of enableConfiguration(). The flag is known where the command
    /// line is in GNU style and the specification has no setting "version".
    ///
    /// "--version" ends a request as help does: the settings hold a bool "version" that is true, nothing is checked,
    /// and there are no defaults. The tool looks for it and prints getVersionText().
    /// @param text copied; null or empty: there is no such flag, as at first
    void setVersionText(char const* text);
    /// The text that was set, or null. Lives until the next call of setVersionText() or reset().
    char const* getVersionText() const;
    /// Replaces all providers by those of a tool's start: the files that "-loadConfiguration" names on the command
    /// line, in their order; the command line without them; the application's file; the installation's
    /// "machine.config". That is also their precedence: a "-loadConfiguration" file wins over the command line. Kept
    /// settings stay as they are. The call is recorded in the kernel's main log before anything can fail.
    /// @param allowMachineConfig    whether "machine.config" is read; it need not exist
    /// @param applicationConfigFile path of a values file, or null
    /// @param argc                  number of arguments
    /// @param argv                  the arguments; null: no command line
    ///
    /// In GNU style, "--loadConfiguration" and "--loadConfiguration=<file>" name files, too, unless they follow "--".
    /// @throws ConfigurationException "Missing value for the -loadConfiguration parameter",
    ///         "File \"<path>\" was not found"; what reading a file and CommandLineValueProvider throw. The providers
    ///         set up before the failure stay.
    void enableConfiguration(bool allowMachineConfig, char const* applicationConfigFile, unsigned int argc,
                             char const* const* argv) override;
    /// Adds the environment variables that begin with a prefix as a source; see EnvironmentValueProvider. They come
    /// directly after the command line and before the application's file and "machine.config"; without a command line,
    /// directly after the application's own values. To be called after enableConfiguration(), which discards all
    /// providers.
    /// @param prefix prefix of the variables' names, such as "KIVORESTORE"; copied
    /// @throws what EnvironmentValueProvider::setArguments() throws; no provider is added then
    void enableEnvironment(char const* prefix);
    /// Adds a provider for one values file, asked after those that are there. A name without a directory that does not
    /// exist is looked for in the configuration directory.
    /// @throws kivo::ContractViolationException "path != 0"
    /// @throws ConfigurationException "File \"<path>\" was not found"
    /// @throws ConfigurationParameterException the faults of the file, one a line
    void loadConfigurationFile(char const* path);
    /// Loads the registry files of the installation: "kivobase.crg" first, then all others. The singleton has loaded
    /// them already: what they declare is then refused as not unique.
    /// @throws ConfigurationException "Unable to find the kivobase.crg file."; what reading a file throws
    void loadDefaultConfigurationRegistry();
    /// @}

private:
    friend class OwnRegistry;
    friend class ParameterGroup;
    friend class ParameterRegistration;

    /// Whether an item of one kind has the id; items of the other kind do not count. The factories ask this.
    KIVO_CONFIGURATION_LOCAL bool hasParameterItem(char const* id, ParameterItem::ItemType type) const;

    static std::atomic<Manager*> smInstance;

    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
