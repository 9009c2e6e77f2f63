#pragma once

#include <configuration/Manager.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterItem.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>
#include <configuration/ValueGroup.h>
#include <configuration/ValueProvider.h>

#include "manager/KeyedRegistry.h"
#include "manager/ValidatorExtensionPoint.h"
#include "schema/NameComparison.h"
#include "schema/StoredOrigin.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kivo::configuration {

/// The state of the manager. Each of its jobs has a file: configuration_Manager.cpp keeps the registries,
/// ManagerRetrieval.cpp collects values, ManagerEnabling.cpp sets up providers, ManagerStartUp.cpp loads what an
/// installation offers, ManagerTexts.cpp composes texts.
class Manager::Impl {
public:
    Impl();
    ~Impl();

    // configuration_Manager.cpp
    /// Takes ownership, unless it throws. The provider is asked after those of the same priority, but before those for
    /// the environment.
    void registerProvider(ValueProvider* provider);
    /// Makes, registers and returns a provider.
    template <class Provider>
    Provider& addProvider(int priority) {
        auto provider = std::make_unique<Provider>(priority);
        registerProvider(provider.get());
        return *provider.release();
    }
    void checkFormerNamesOf(Specification const& specification) const;
    void clearCaches();

    // ManagerRetrieval.cpp
    Specification* findSpecification(char const* name) const;
    void getValues(Specification const* specification, ParameterValueGroup& result, int flags) const;
    void validateValues(Specification const* specification, ParameterValueGroup& values, int flags) const;
    ParameterValueGroup* getSpecificationContainer(char const* name, bool required, int flags);
    ValueGroup getValueGroup(char const* name, bool required, int flags);
    void setApplicationValues(ParameterValueGroup const& values, int flags);
    /// The first provider of a name, letter case ignored, or null.
    ValueProvider* findProvider(char const* name) const;

    // ManagerEnabling.cpp
    void enableConfiguration(bool allowMachineConfig, char const* applicationConfigFile, unsigned int argc,
                             char const* const* argv);
    void enableEnvironment(char const* prefix);
    /// @param demand the argument that asks for the file, if one does
    bool loadConfigurationFile(std::string const& path, bool allowMissing, StoredOrigin const& demand);
    void loadAndLogConfigurationFile(std::string const& path, bool allowMissing, StoredOrigin const& demand);

    // ManagerStartUp.cpp
    void loadDefaultConfigurationRegistry();
    void registerDefaultValidators();

    // ManagerTexts.cpp
    using ComposeFunction = std::function<std::string(ValueProvider const&, Specification const*)>;
    /// Lets the provider of a name compose a text about a specification, or a command-line provider where there is none
    /// of that name.
    /// @param buffer keeps the text
    char const* composeMessage(std::string& buffer, char const* providerName, char const* specificationName,
                               ComposeFunction const& compose) const;

    std::string composeDetailedHelp(char const* specificationName, unsigned long width) const;

    /// Sorted by priority; those of equal priority in the order of registration, those for the environment last.
    std::vector<std::unique_ptr<ValueProvider>> mProviders;
    static constexpr int APPLICATION_VALUES_PRIORITY = 0;
    /// The priority of the next provider that enableConfiguration() or loadConfigurationFile() makes.
    int mNextProviderPriority = 1;
    CommandLineStyle mCommandLineStyle = PLAIN_COMMAND_LINE;
    std::string mVersionText; // empty: none
    KeyedRegistry<Specification> mSpecifications{"specification"};
    KeyedRegistry<ParameterEnumDefinition> mEnumDefinitions{"enumeration"};
    KeyedRegistry<ParameterItem> mParameterItems{"item"};
    KeyedRegistry<ParameterValidator> mValidators{"validator"};
    std::vector<std::unique_ptr<ParameterItem, Destroyer>> mSpecializations;
    /// Checked and completed values by specification.
    std::map<std::string, std::unique_ptr<ParameterValueGroup>, CaseInsensitiveLess> mValueGroupCache;
    ValidatorExtensionPoint mValidatorExtensionPoint;
    std::string mUsageMessage;
    std::string mHelpMessage;
    std::string mDetailedHelp;
    /// The last representation of each kind, shared by all managers of the process.
    static std::string smParameterItemRepresentationCache;
    static std::string smParameterValueItemRepresentationCache;
};

} // namespace kivo::configuration
