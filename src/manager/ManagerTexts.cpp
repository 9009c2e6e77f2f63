#include "kernel/kvProcessInit.h"

#include <configuration/CommandLineValueProvider.h>
#include <configuration/EnvironmentValueProvider.h>
#include <configuration/ParameterGroup.h>

#include "manager/ManagerImpl.h"
#include "providers/EnvironmentNames.h"
#include "providers/EnvironmentVariables.h"
#include "schema/ContractChecks.h"
#include "text/DetailedHelp.h"
#include "text/ParameterItemRepresentationVisitor.h"
#include "text/ParameterValueItemRepresentationVisitor.h"
#include "text/TerminalWidth.h"

#include <list>

namespace kivo::configuration {

char const* Manager::Impl::composeMessage(std::string& buffer, char const* providerName, char const* specificationName,
                                          ComposeFunction const& compose) const {
    KIVO_REQUIRE(providerName != 0 && strlen(providerName) > 0);
    KIVO_REQUIRE_AS("specificationName != 0 && strlen( specificationName) > 0",
                    specificationName != 0 && strlen(specificationName) > 0);
    auto const* specification = findSpecification(specificationName);
    if (auto const* provider = findProvider(providerName)) {
        buffer = compose(*provider, specification);
    } else {
        buffer = compose(CommandLineValueProvider(1), specification);
    }
    return buffer.c_str();
}

char const* Manager::composeUsageMessage(char const* providerName, char const* specificationName) const {
    return mImpl->composeMessage(mImpl->mUsageMessage, providerName, specificationName,
                                 [](ValueProvider const& provider, Specification const* specification) {
                                     return std::string(provider.composeUsageMessage(specification));
                                 });
}

char const* Manager::composeHelpMessage(char const* providerName, char const* specificationName,
                                        unsigned long screenWidth, unsigned long maxParameterNameWidth) const {
    return mImpl->composeMessage(
        mImpl->mHelpMessage, providerName, specificationName,
        [&](ValueProvider const& provider, Specification const* specification) {
            return std::string(provider.composeHelpMessage(specification, screenWidth, maxParameterNameWidth));
        });
}

std::string Manager::Impl::composeDetailedHelp(char const* specificationName, unsigned long width) const {
    KIVO_REQUIRE_AS("specificationName != 0 && strlen( specificationName) > 0",
                    specificationName != 0 && strlen(specificationName) > 0);
    auto const& root = *findSpecification(specificationName)->getParameterGroup();
    std::list<EnvironmentNames> environments;
    for (auto const& provider : mProviders) {
        auto const* const environment = dynamic_cast<EnvironmentValueProvider const*>(provider.get());
        if (environment && environment->getEnabled()) {
            environments.emplace_back(root, environment->getVariables().prefix);
        }
    }
    DetailedHelp help(mCommandLineStyle, [&](std::vector<char const*> const& ids) {
        std::string variable;
        for (auto each = environments.begin(); variable.empty() && each != environments.end(); ++each) {
            variable = each->find(ids);
        }
        return variable;
    });
    root.accept(help);
    return help.compose(width > 0 ? width : terminalWidth());
}

char const* Manager::composeDetailedHelp(char const* specificationName, unsigned long width) const {
    mImpl->mDetailedHelp = mImpl->composeDetailedHelp(specificationName, width);
    return mImpl->mDetailedHelp.c_str();
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
