#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/EnvironmentValueProvider.h>
#include <configuration/ValueGroupIterator.h>

#include "manager/ManagerImpl.h"
#include "schema/ContractChecks.h"
#include "schema/FormerNames.h"
#include "schema/ItemKinds.h"

#include <algorithm>
#include <utility>

namespace kivo::configuration {

char const* const Manager::COMMAND_LINE_PROVIDER_NAME = "CLI";
char const* const Manager::XML_FILE_PROVIDER_NAME = "XML_FILE";
char const* const Manager::APPLICATION_PROVIDER_NAME = "APP_VALUES";
char const* const Manager::ENVIRONMENT_PROVIDER_NAME = "ENVIRONMENT";

namespace {

/// What the providers are sorted by. The environment shares the priority of the command line, or of the application's
/// own values, and comes after them, whatever is registered first.
std::pair<int, bool> placeOf(ValueProvider const& provider) {
    return {provider.getPriority(), dynamic_cast<EnvironmentValueProvider const*>(&provider) != nullptr};
}

} // namespace

Manager::Impl::Impl() = default;

Manager::Impl::~Impl() { clearCaches(); }

void Manager::Impl::registerProvider(ValueProvider* provider) {
    auto const position = std::ranges::upper_bound(mProviders, placeOf(*provider), {},
                                                   [](auto const& registered) { return placeOf(*registered); });
    mProviders.emplace(position)->reset(provider); // room first: when there is none, the caller keeps the provider
}

/// A specification may be registered before its group, or without one.
void Manager::Impl::checkFormerNamesOf(Specification const& specification) const {
    mParameterItems.contains(specification.getId(), [](ParameterItem const& item) {
        auto const* const group = asGroup(&item);
        if (group) {
            checkFormerNames(*group);
        }
        return group != nullptr;
    });
}

void Manager::Impl::clearCaches() {
    mProviders.clear();
    mSpecifications.clear();
    mEnumDefinitions.clear();
    mParameterItems.clear();
    mValidators.clear();
    mSpecializations.clear();
    mValueGroupCache.clear();
}

Manager::Manager() : mImpl(std::make_unique<Impl>()) {}

Manager::~Manager() = default;

void Manager::reset() {
    mImpl->clearCaches();
    mImpl->mNextProviderPriority = 1;
    mImpl->mCommandLineStyle = PLAIN_COMMAND_LINE;
    mImpl->mVersionText.clear();
    mImpl->registerDefaultValidators();
    mImpl->loadDefaultConfigurationRegistry();
}

void Manager::registerSpecification(Specification* specification) {
    KIVO_REQUIRE(specification != 0);
    if (areThereFormerNames()) {
        mImpl->checkFormerNamesOf(*specification);
    }
    mImpl->mSpecifications.add(specification->getId(), specification);
}

void Manager::addParameterItem(ParameterItem* item) {
    KIVO_REQUIRE(item != 0);
    mImpl->mParameterItems.add(item->getId(), item);
}

void Manager::addParameterItemSpecialization(ParameterItem* specialization) {
    KIVO_REQUIRE(specialization != 0);
    mImpl->mSpecializations.emplace_back(nullptr);
    mImpl->mSpecializations.back().reset(specialization);
}

void Manager::registerEnumDefinition(ParameterEnumDefinition* enumDefinition) {
    KIVO_REQUIRE(enumDefinition != 0);
    mImpl->mEnumDefinitions.add(enumDefinition->getName(), enumDefinition);
}

void Manager::addValidator(ParameterValidator* validator) {
    KIVO_REQUIRE(validator != 0);
    mImpl->mValidators.add(validator->getName(), validator);
}

void Manager::registerProvider(ValueProvider* valueProvider) {
    KIVO_REQUIRE(valueProvider != 0);
    mImpl->registerProvider(valueProvider);
}

void Manager::registerDefaultValidators() { mImpl->registerDefaultValidators(); }

Specification* Manager::getSpecification(char const* name) const { return mImpl->mSpecifications.find(name); }

ParameterItem* Manager::getParameterItem(char const* id) const {
    KIVO_REQUIRE(id != 0);
    return mImpl->mParameterItems.find(id);
}

ParameterItem* Manager::getParameterItem(char const* id, ParameterItem::ItemType type) const {
    auto* item = getParameterItem(id);
    if (item && item->getItemType() != type) {
        throw ConfigurationException("Invalid item type. Expected: %d, found: %d", static_cast<int>(type),
                                     static_cast<int>(item->getItemType()));
    }
    return item;
}

bool Manager::hasParameterItem(char const* id, ParameterItem::ItemType type) const {
    KIVO_REQUIRE(id != 0);
    return mImpl->mParameterItems.contains(id,
                                           [type](ParameterItem const& item) { return item.getItemType() == type; });
}

ParameterEnumDefinition* Manager::getEnumDefinition(char const* name) const {
    return mImpl->mEnumDefinitions.find(name);
}

ParameterValidator* Manager::getValidator(char const* name) const {
    KIVO_REQUIRE(name != 0);
    return mImpl->mValidators.find(name);
}

ValueProvider* Manager::getProvider(unsigned long index) {
    KIVO_REQUIRE(index < getNumberOfProviders());
    return mImpl->mProviders[index].get();
}

unsigned long Manager::getNumberOfProviders() const { return mImpl->mProviders.size(); }

unsigned long Manager::getNumberOfSpecifications() const { return mImpl->mSpecifications.size(); }

Specification* Manager::getSpecificationAt(unsigned long index) const {
    KIVO_REQUIRE(index < getNumberOfSpecifications());
    return mImpl->mSpecifications[index];
}

unsigned long Manager::getNumberofValidators() const { return mImpl->mValidators.size(); }

void Manager::getValues(Specification const* specification, ParameterValueGroup& result, int flags) {
    mImpl->getValues(specification, result, flags);
}

void Manager::getValues(char const* specificationName, ParameterValueGroup& result, int flags) {
    mImpl->getValues(mImpl->findSpecification(specificationName), result, flags);
}

void Manager::validateValues(Specification const* specification, ParameterValueGroup& values, int flags) {
    mImpl->validateValues(specification, values, flags);
}

ValueGroup Manager::getValueGroup(char const* name, bool required, int flags) const {
    return mImpl->getValueGroup(name, required, flags);
}

ValueGroupIterator Manager::getValueGroupIterator(char const* name, int flags) const {
    return {mImpl->getSpecificationContainer(name, false, flags), name};
}

void Manager::setApplicationValues(ParameterValueGroup const& values, int flags) {
    mImpl->setApplicationValues(values, flags);
}

void Manager::setCommandLineStyle(CommandLineStyle style) { mImpl->mCommandLineStyle = style; }

void Manager::setVersionText(char const* text) { mImpl->mVersionText = text ? text : ""; }

char const* Manager::getVersionText() const {
    return mImpl->mVersionText.empty() ? nullptr : mImpl->mVersionText.c_str();
}

void Manager::enableConfiguration(bool allowMachineConfig, char const* applicationConfigFile, unsigned int argc,
                                  char const* const* argv) {
    mImpl->enableConfiguration(allowMachineConfig, applicationConfigFile, argc, argv);
}

void Manager::enableEnvironment(char const* prefix) { mImpl->enableEnvironment(prefix); }

void Manager::loadConfigurationFile(char const* path) {
    KIVO_REQUIRE(path != 0);
    mImpl->loadAndLogConfigurationFile(path, false, {});
}

void Manager::loadDefaultConfigurationRegistry() { mImpl->loadDefaultConfigurationRegistry(); }

} // namespace kivo::configuration
