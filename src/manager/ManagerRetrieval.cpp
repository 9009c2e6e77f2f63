#include "kernel/kvProcessInit.h"

#include <configuration/ApplicationValuesProvider.h>
#include <configuration/ConfigurationException.h>
#include <configuration/Flags.h>
#include <configuration/ParameterErrors.h>
#include <configuration/ParameterGroup.h>

#include "manager/ManagerImpl.h"
#include "providers/HelpRequest.h"
#include "providers/ProviderOrigins.h"
#include "providers/ValuePipeline.h"
#include "schema/ContractChecks.h"
#include "visitors/ConstraintSplitterVisitor.h"
#include "visitors/FirstPhaseValidationVisitor.h"
#include "visitors/ParameterMatchingVisitor.h"
#include "visitors/RunPhase.h"

namespace kivo::configuration {

namespace {

/// When the user asked for help, or for the version, the tool gets the collected values as they are.
void addHelpRequest(Specification const& specification, ParameterValueGroup const& collected,
                    ParameterValueGroup& result) {
    auto group = std::make_unique<ParameterValueGroup>(specification.getParameterGroup());
    for (unsigned long i = 0; i < collected.getNumberOfItems(); ++i) {
        group->addItem(collected.getItem(i)->clone(ParameterValueItem::DEEP_COPY));
    }
    result.addItem(group.release());
}

} // namespace

Specification* Manager::Impl::findSpecification(char const* name) const {
    auto* specification = mSpecifications.find(name);
    if (!specification) {
        throw ConfigurationException("Specification \"%s\" was not found", name);
    }
    return specification;
}

void Manager::Impl::getValues(Specification const* specification, ParameterValueGroup& result, int flags) const {
    KIVO_REQUIRE(specification != 0);
    ParameterValueGroup collected(nullptr);
    // By position, since a caller's own provider may register another one during this loop.
    for (std::size_t i = 0; i < mProviders.size(); ++i) {
        auto& provider = *mProviders[i];
        if (!provider.getEnabled()) {
            continue;
        }
        bool const isLast = !provider.getValues(specification, collected, flags);
        fillOrigins(collected, provider);
        if (isLast) {
            break;
        }
    }
    if (readsAsTrue(collected, HELP) || asksForVersion(collected)) {
        addHelpRequest(*specification, collected, result);
    } else {
        ValuePipeline(*specification, flags).complete(collected, result);
    }
}

void Manager::Impl::validateValues(Specification const* specification, ParameterValueGroup& values, int flags) const {
    KIVO_REQUIRE(specification != 0);
    ParameterErrors errors;
    runPhase(values, errors, ParameterMatchingVisitor(*specification, errors, (flags & STRICT_RECOGNITION) != 0));
    if (readsAsTrue(values, HELP)) {
        return;
    }
    runPhase(values, errors, ConstraintSplitterVisitor(errors));
    runPhase(values, errors, FirstPhaseValidationVisitor(errors));
    ParameterValueGroup working(values); // completing takes values apart: whatever goes wrong, the caller keeps them
    ParameterValueGroup validated(nullptr);
    ValuePipeline(*specification, flags).complete(working, validated);
    values = validated;
}

ParameterValueGroup* Manager::Impl::getSpecificationContainer(char const* name, bool required, int flags) {
    auto const* specification = findSpecification(name);
    if (auto const cached = mValueGroupCache.find(std::string_view(name)); cached != mValueGroupCache.end()) {
        return cached->second.get();
    }
    auto collected = std::make_unique<ParameterValueGroup>(nullptr);
    getValues(specification, *collected, flags);
    if (collected->getNumberOfItems() == 0) {
        if (required) {
            throw ConfigurationException("The \"%s\" group was not found", name);
        }
        return nullptr;
    }
    return mValueGroupCache.emplace(name, std::move(collected)).first->second.get();
}

ValueGroup Manager::Impl::getValueGroup(char const* name, bool required, int flags) {
    auto const* container = getSpecificationContainer(name, required, flags);
    auto const* item = container ? container->getItem(name) : nullptr;
    if (!item || item->getItemType() != ParameterValueItem::PARAMETER_VALUE_GROUP) {
        return ValueGroup(nullptr);
    }
    return ValueGroup(static_cast<ParameterValueGroup const*>(item));
}

ValueProvider* Manager::Impl::findProvider(char const* name) const {
    for (auto const& provider : mProviders) {
        if (equalIgnoringCase(provider->getName(), name)) {
            return provider.get();
        }
    }
    return nullptr;
}

void Manager::Impl::setApplicationValues(ParameterValueGroup const& values, int flags) {
    auto* provider = findProvider(APPLICATION_PROVIDER_NAME);
    if (provider) {
        provider->reset();
    } else {
        provider = &addProvider<ApplicationValuesProvider>(APPLICATION_VALUES_PRIORITY);
    }
    provider->enableProvider(values, flags);
    mValueGroupCache.clear();
}

} // namespace kivo::configuration
