#include "kernel/kvProcessInit.h"

#include <configuration/CommandLineValueProvider.h>
#include <configuration/Manager.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include "providers/CommandLineArguments.h"
#include "schema/ContractChecks.h"

#include <algorithm>
#include <string>
#include <utility>

namespace kivo::configuration {

class CommandLineValueProvider::Impl {
public:
    std::unique_ptr<ParameterValueGroup> mArguments = makeArguments();
    std::vector<unsigned long> mOriginalIndexes; // of the next arguments; empty: as they are counted
};

CommandLineValueProvider::CommandLineValueProvider(int priority)
    : ValueProvider(priority), mImpl(std::make_unique<Impl>()) {}

CommandLineValueProvider::~CommandLineValueProvider() = default;

char const* CommandLineValueProvider::getName() const { return Manager::COMMAND_LINE_PROVIDER_NAME; }

void CommandLineValueProvider::setArguments(int argc, char const* const* argv, int flags) {
    std::vector<std::string> texts(argv && argc > 0 ? static_cast<std::size_t>(argc) : 0);
    std::transform(argv, argv + texts.size(), texts.begin(), trimArgument);
    auto const originalIndexes = std::exchange(mImpl->mOriginalIndexes, {});
    mImpl->mArguments = parseArguments(texts, originalIndexes, flags, nullptr);
}

bool CommandLineValueProvider::getValues(Specification const* specification, ParameterValueGroup& result, int flags) {
    KIVO_REQUIRE(specification != 0);
    auto values = assignArguments(*mImpl->mArguments, *specification, flags, nullptr);
    setDataCache(ParameterValueGroup(nullptr));
    getDataCache().addItem(values.release());
    return ValueProvider::getValues(specification, result, flags);
}

void CommandLineValueProvider::reset() {
    mImpl->mArguments = makeArguments();
    mImpl->mOriginalIndexes.clear();
    ValueProvider::reset();
}

void CommandLineValueProvider::setOriginalIndexes(std::vector<unsigned long> indexes) {
    mImpl->mOriginalIndexes = std::move(indexes);
}

ParameterValueGroup const& CommandLineValueProvider::getArguments() const { return *mImpl->mArguments; }

bool CommandLineValueProvider::removeParameter(Specification const* specification, char const* parameterName) {
    KIVO_REQUIRE(specification != 0);
    KIVO_REQUIRE(parameterName != 0 && *parameterName != '\0');
    std::unique_ptr<ParameterValueItem> found(mImpl->mArguments->getItem(parameterName));
    mImpl->mArguments->removeItem(parameterName);
    return found != nullptr;
}

} // namespace kivo::configuration
