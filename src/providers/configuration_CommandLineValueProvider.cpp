#include "kernel/kvProcessInit.h"

#include <configuration/CommandLineValueProvider.h>
#include <configuration/Manager.h>
#include <configuration/ParameterErrors.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include "providers/CommandLineArguments.h"
#include "providers/GnuArguments.h"
#include "providers/ValuePipeline.h"
#include "schema/ContractChecks.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <string>
#include <utility>

namespace kivo::configuration {

namespace {

std::string copyArgument(char const* argument) { return argument ? argument : ""; }

/// Sends values on their way when a flag asked for help that the specification does not declare.
class RequestPipeline final : public ValuePipeline {
public:
    using ValuePipeline::ValuePipeline;

private:
    bool isHelpRequest(ParameterValueGroup const&) override { return true; }
};

} // namespace

class CommandLineValueProvider::Impl {
public:
    CommandLineStyle mStyle = PLAIN_COMMAND_LINE; // of the next arguments
    bool mHasVersionFlag = false;
    std::optional<GnuArguments> mGnuArguments; // in that style, instead of mArguments
    std::unique_ptr<ParameterValueGroup> mArguments = makeArguments();
    ArgumentTexts mTexts;                        // of mArguments
    std::vector<unsigned long> mOriginalIndexes; // of the next arguments; empty: as they are counted
};

CommandLineValueProvider::CommandLineValueProvider(int priority)
    : ValueProvider(priority), mImpl(std::make_unique<Impl>()) {}

CommandLineValueProvider::~CommandLineValueProvider() = default;

char const* CommandLineValueProvider::getName() const { return Manager::COMMAND_LINE_PROVIDER_NAME; }

void CommandLineValueProvider::setArguments(int argc, char const* const* argv, int flags) {
    bool const isGnu = mImpl->mStyle == GNU_COMMAND_LINE;
    std::vector<std::string> texts(argv && argc > 0 ? static_cast<std::size_t>(argc) : 0);
    std::transform(argv, argv + texts.size(), texts.begin(), isGnu ? copyArgument : trimArgument);
    auto originalIndexes = std::exchange(mImpl->mOriginalIndexes, {});
    if (isGnu) {
        if (originalIndexes.size() != texts.size()) {
            originalIndexes.resize(texts.size());
            std::iota(originalIndexes.begin(), originalIndexes.end(), 0UL);
        }
        mImpl->mGnuArguments = {std::move(texts), std::move(originalIndexes), mImpl->mHasVersionFlag};
        mImpl->mArguments = makeArguments();
        mImpl->mTexts = {};
    } else {
        ArgumentTexts arguments{std::move(texts), std::move(originalIndexes)};
        mImpl->mArguments = parseArguments(arguments, flags, nullptr);
        mImpl->mTexts = std::move(arguments);
        mImpl->mGnuArguments.reset();
    }
}

bool CommandLineValueProvider::getValues(Specification const* specification, ParameterValueGroup& result, int flags) {
    KIVO_REQUIRE(specification != 0);
    if (mImpl->mGnuArguments) {
        return getGnuValues(*specification, result, flags);
    }
    auto values = assignArguments(*mImpl->mArguments, *specification, flags, nullptr);
    setDataCache(ParameterValueGroup(nullptr));
    getDataCache().addItem(values.release());
    return ValueProvider::getValues(specification, result, flags);
}

bool CommandLineValueProvider::getGnuValues(Specification const& specification, ParameterValueGroup& result,
                                            int flags) {
    ParameterErrors faults;
    auto split = splitGnuArguments(*mImpl->mGnuArguments, specification, flags, faults);
    faults.throwIfErrors();
    setDataCache(ParameterValueGroup(nullptr));
    getDataCache().addItem(split.values.release());
    if (split.requests.empty()) {
        return ValueProvider::getValues(&specification, result, flags);
    }
    RequestPipeline(specification, flags).addSource(this, getDataCache(), result);
    for (auto& request : split.requests) {
        result.addItem(request.release());
    }
    return false;
}

void CommandLineValueProvider::reset() {
    mImpl->mGnuArguments.reset();
    mImpl->mArguments = makeArguments();
    mImpl->mTexts = {};
    mImpl->mOriginalIndexes.clear();
    ValueProvider::reset();
}

void CommandLineValueProvider::setOriginalIndexes(std::vector<unsigned long> indexes) {
    mImpl->mOriginalIndexes = std::move(indexes);
}

ParameterValueGroup const& CommandLineValueProvider::getArguments() const { return *mImpl->mArguments; }

ArgumentTexts const& CommandLineValueProvider::getTexts() const { return mImpl->mTexts; }

GnuArguments const* CommandLineValueProvider::getGnuArguments() const {
    return mImpl->mGnuArguments ? &*mImpl->mGnuArguments : nullptr;
}

void CommandLineValueProvider::setCommandLineStyle(CommandLineStyle style) { mImpl->mStyle = style; }

void CommandLineValueProvider::setVersionFlag(bool known) { mImpl->mHasVersionFlag = known; }

bool CommandLineValueProvider::removeParameter(Specification const* specification, char const* parameterName) {
    KIVO_REQUIRE(specification != 0);
    KIVO_REQUIRE(parameterName != 0 && *parameterName != '\0');
    if (mImpl->mGnuArguments) {
        return removeGnuFlag(*mImpl->mGnuArguments, *specification, parameterName);
    }
    std::unique_ptr<ParameterValueItem> found(mImpl->mArguments->getItem(parameterName));
    mImpl->mArguments->removeItem(parameterName);
    return found != nullptr;
}

} // namespace kivo::configuration
