#include "kernel/kvProcessInit.h"

#include <configuration/InspectedSetting.h>

#include "inspection/InspectedSettingImpl.h"
#include "schema/ContractChecks.h"

#include <algorithm>
#include <utility>

namespace kivo::configuration {

namespace {

bool isGivenText(InspectedText const& text) { return text.getOrigin().getSource() != Origin::DEFAULT_SOURCE; }

} // namespace

InspectedSetting::InspectedSetting(std::shared_ptr<Impl const> impl) noexcept : mImpl(std::move(impl)) {}

InspectedSetting::InspectedSetting(InspectedSetting const&) noexcept = default;

InspectedSetting& InspectedSetting::operator=(InspectedSetting const&) noexcept = default;

InspectedSetting::~InspectedSetting() = default;

Parameter const& InspectedSetting::getParameter() const noexcept { return *mImpl->parameter; }

char const* InspectedSetting::getName() const noexcept { return mImpl->name.c_str(); }

unsigned long InspectedSetting::getNumberOfPathParts() const noexcept { return mImpl->path.size(); }

char const* InspectedSetting::getPathPart(unsigned long index) const {
    KIVO_REQUIRE(index < getNumberOfPathParts());
    return mImpl->path[index].c_str();
}

unsigned long InspectedSetting::getNumberOfValues() const noexcept { return mImpl->values.size(); }

InspectedText InspectedSetting::getValue(unsigned long index) const {
    KIVO_REQUIRE(index < getNumberOfValues());
    return mImpl->values[index];
}

unsigned long InspectedSetting::getNumberOfAlternatives() const noexcept { return mImpl->alternatives.size(); }

InspectedText InspectedSetting::getAlternative(unsigned long index) const {
    KIVO_REQUIRE(index < getNumberOfAlternatives());
    return mImpl->alternatives[index];
}

bool InspectedSetting::isGiven() const noexcept {
    return std::ranges::any_of(mImpl->values, isGivenText) || std::ranges::any_of(mImpl->alternatives, isGivenText);
}

} // namespace kivo::configuration
