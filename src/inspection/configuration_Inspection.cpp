#include "kernel/kvProcessInit.h"

#include <configuration/Inspection.h>
#include <configuration/Parameter.h>
#include <configuration/Specification.h>

#include "inspection/InspectionImpl.h"
#include "schema/ContractChecks.h"
#include "schema/NameComparison.h"

#include <algorithm>
#include <iterator>

namespace kivo::configuration {

Inspection::Inspection(Specification const& specification, InspectionInputs const&)
    : mImpl(std::make_shared<Impl const>(Impl{specification.getId(), {}, {}})) {}

Inspection::Inspection(Specification const& specification, bool, int)
    : mImpl(std::make_shared<Impl const>(Impl{specification.getId(), {}, {}})) {}

Inspection::Inspection(Inspection const&) noexcept = default;

Inspection& Inspection::operator=(Inspection const&) noexcept = default;

Inspection::~Inspection() = default;

char const* Inspection::getSpecificationId() const noexcept { return mImpl->specificationId.c_str(); }

std::vector<InspectedSetting> const& Inspection::getSettings() const noexcept { return mImpl->settings; }

std::vector<Finding> const& Inspection::getFindings() const noexcept { return mImpl->findings; }

unsigned long Inspection::getNumberOfFindings(Finding::Severity severity) const noexcept {
    return static_cast<unsigned long>(std::ranges::count(mImpl->findings, severity, &Finding::getSeverity));
}

std::vector<InspectedSetting> Inspection::findSettings(char const* name) const {
    KIVO_REQUIRE(name != 0);
    std::vector<InspectedSetting> found;
    auto const keep = [&](auto nameOf) {
        std::ranges::copy_if(mImpl->settings, std::back_inserter(found),
                             [&](InspectedSetting const& setting) { return equalIgnoringCase(nameOf(setting), name); });
    };
    keep([](InspectedSetting const& setting) { return setting.getName(); });
    if (found.empty()) {
        keep([](InspectedSetting const& setting) { return setting.getParameter().getId(); });
    }
    return found;
}

std::string Inspection::suggestSetting(char const* name) const {
    KIVO_REQUIRE(name != 0);
    return {};
}

bool Inspection::isMachineConfigLeftOut() const noexcept { return mImpl->isMachineConfigLeftOut; }

} // namespace kivo::configuration
