#include "kernel/kvProcessInit.h"

#include <configuration/Inspection.h>
#include <configuration/Manager.h>
#include <configuration/Parameter.h>
#include <configuration/Specification.h>

#include "inspection/InspectionImpl.h"
#include "inspection/InspectionInputsImpl.h"
#include "inspection/InspectionPipeline.h"
#include "inspection/MarkRemarks.h"
#include "inspection/SettingLister.h"
#include "inspection/ToolSources.h"
#include "inspection/ValueRemarks.h"
#include "schema/ContractChecks.h"
#include "schema/NameComparison.h"
#include "schema/NameSuggestion.h"

#include <algorithm>
#include <iterator>

namespace kivo::configuration {

namespace {

// Whether a name means a setting.

bool hasFullName(InspectedSetting const& setting, std::string_view name) {
    return equalIgnoringCase(setting.getName(), name);
}

/// "mirror.delay" for "mirror[2].delay".
bool hasPath(InspectedSetting const& setting, std::string_view name) {
    std::string path;
    bool isCount = false;
    for (char const c : std::string_view(setting.getName())) {
        isCount = isCount ? c != ']' : c == '[';
        if (!isCount && c != ']') {
            path += c;
        }
    }
    return equalIgnoringCase(path, name);
}

bool hasLastPart(InspectedSetting const& setting, std::string_view name) {
    return equalIgnoringCase(setting.getParameter().getId(), name);
}

bool hadLastPart(InspectedSetting const& setting, std::string_view name) {
    char const* const formerName = setting.getParameter().getFormerName();
    return formerName && equalIgnoringCase(formerName, name);
}

bool hadFullName(InspectedSetting const& setting, std::string_view name) {
    std::string_view const current = setting.getName();
    auto const prefix = current.substr(0, current.size() - std::string_view(setting.getParameter().getId()).size());
    return beginsIgnoringCase(name, prefix) && hadLastPart(setting, name.substr(prefix.size()));
}

/// Offers full names and last parts.
void offerNames(ClosestName& closest, InspectedSetting const& setting, InspectedSetting const*& best) {
    auto const* const before = closest.get();
    closest.offer(setting.getName());
    closest.offer(setting.getParameter().getId());
    best = closest.get() == before ? best : &setting;
}

} // namespace

std::shared_ptr<Inspection::Impl const> Inspection::Impl::make(Specification const& specification,
                                                               InspectionPipeline& pipeline, bool isRequired,
                                                               bool isMachineConfigLeftOut) {
    pipeline.complete(isRequired);
    auto made = std::make_shared<Impl>();
    made->specificationId = specification.getId();
    SettingLister lister(pipeline);
    made->settings = lister.list();
    made->hiddenSettings = lister.takeHidden();
    remarkOnValues(pipeline);
    remarkOnMarks(pipeline);
    made->findings = pipeline.getFindings().take();
    made->values = pipeline.getResult();
    made->isMachineConfigLeftOut = isMachineConfigLeftOut;
    return made;
}

Inspection::Inspection(Specification const& specification, InspectionInputs const& inputs) {
    auto const& given = *inputs.mImpl;
    InspectionPipeline pipeline(specification, given.flags, given.isCommandLineOpen);
    bool const isLeftOut = addToolSources(pipeline, given);
    mImpl = Impl::make(specification, pipeline, given.isRequired, isLeftOut);
}

Inspection::Inspection(Specification const& specification, bool required, int flags) {
    InspectionPipeline pipeline(specification, flags, false);
    addProviders(pipeline, *Manager::getInstance(), flags);
    mImpl = Impl::make(specification, pipeline, required, false);
}

Inspection::Inspection(Inspection const&) noexcept = default;

Inspection& Inspection::operator=(Inspection const&) noexcept = default;

Inspection::~Inspection() = default;

char const* Inspection::getSpecificationId() const noexcept { return mImpl->specificationId.c_str(); }

std::vector<InspectedSetting> const& Inspection::getSettings() const noexcept { return mImpl->settings; }

std::vector<Finding> const& Inspection::getFindings() const noexcept { return mImpl->findings; }

ParameterValueGroup const& Inspection::getValues() const noexcept { return mImpl->values; }

unsigned long Inspection::getNumberOfFindings(Finding::Severity severity) const noexcept {
    return static_cast<unsigned long>(std::ranges::count(mImpl->findings, severity, &Finding::getSeverity));
}

std::vector<InspectedSetting> Inspection::findSettings(char const* name) const {
    KIVO_REQUIRE(name != 0);
    std::vector<InspectedSetting> found;
    for (auto const matches : {hasFullName, hasPath, hasLastPart, hadFullName, hadLastPart}) {
        for (auto const* settings : {&mImpl->settings, &mImpl->hiddenSettings}) {
            if (found.empty()) {
                std::ranges::copy_if(*settings, std::back_inserter(found),
                                     [&](InspectedSetting const& setting) { return matches(setting, name); });
            }
        }
    }
    return found;
}

std::string Inspection::suggestSetting(char const* name) const {
    KIVO_REQUIRE(name != 0);
    ClosestName closest(name);
    InspectedSetting const* best = nullptr;
    for (auto const& setting : mImpl->settings) {
        offerNames(closest, setting, best);
    }
    return best ? best->getName() : "";
}

bool Inspection::isMachineConfigLeftOut() const noexcept { return mImpl->isMachineConfigLeftOut; }

} // namespace kivo::configuration
