#include "kernel/kvProcessInit.h"

#include <configuration/CommandLineValueProvider.h>

#include "manager/ManagerImpl.h"
#include "schema/ContractChecks.h"
#include "text/ParameterItemRepresentationVisitor.h"
#include "text/ParameterValueItemRepresentationVisitor.h"

namespace kivo::configuration {

namespace {

/// The text of a provider of the manager's, or of a command-line provider when there is none of that name.
template <class Compose>
char const* composeInto(std::string& buffer, ValueProvider const* provider, Compose compose) {
    buffer = compose(provider ? *provider : static_cast<ValueProvider const&>(CommandLineValueProvider(1)));
    return buffer.c_str();
}

} // namespace

char const* Manager::composeUsageMessage(char const* providerName, char const* specificationName) const {
    KIVO_REQUIRE(providerName != 0 && strlen(providerName) > 0);
    KIVO_REQUIRE_AS("specificationName != 0 && strlen( specificationName) > 0",
                    specificationName != 0 && strlen(specificationName) > 0);
    auto const* specification = mImpl->findSpecification(specificationName);
    return composeInto(mImpl->mUsageMessage, mImpl->findProvider(providerName), [&](ValueProvider const& provider) {
        return std::string(provider.composeUsageMessage(specification));
    });
}

char const* Manager::composeHelpMessage(char const* providerName, char const* specificationName,
                                        unsigned long screenWidth, unsigned long maxParameterNameWidth) const {
    KIVO_REQUIRE(providerName != 0 && strlen(providerName) > 0);
    KIVO_REQUIRE_AS("specificationName != 0 && strlen( specificationName) > 0",
                    specificationName != 0 && strlen(specificationName) > 0);
    auto const* specification = mImpl->findSpecification(specificationName);
    return composeInto(mImpl->mHelpMessage, mImpl->findProvider(providerName), [&](ValueProvider const& provider) {
        return std::string(provider.composeHelpMessage(specification, screenWidth, maxParameterNameWidth));
    });
}

std::string Manager::Impl::smParameterItemRepresentationCache;
std::string Manager::Impl::smParameterValueItemRepresentationCache;

char const* Manager::getRepresentation(ParameterItem const& item) const {
    Impl::smParameterItemRepresentationCache = ParameterItemRepresentationVisitor::getRepresentation(item);
    return Impl::smParameterItemRepresentationCache.c_str();
}

char const* Manager::getRepresentation(ParameterValueItem const& item) const {
    Impl::smParameterValueItemRepresentationCache = ParameterValueItemRepresentationVisitor::getRepresentation(item);
    return Impl::smParameterValueItemRepresentationCache.c_str();
}

} // namespace kivo::configuration
