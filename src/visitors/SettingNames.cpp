#include "kernel/kvProcessInit.h"

#include "visitors/SettingNames.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>

#include "schema/NameSuggestion.h"

namespace kivo::configuration {

std::string composeSectionName(ParameterGroup const& container, unsigned long occurrence) {
    return container.getId() + (container.isUnbounded() ? "[" + std::to_string(occurrence) + "]" : std::string());
}

std::string composeRootName(ParameterGroup const& root, unsigned long occurrence) {
    return root.isUnbounded() ? composeSectionName(root, occurrence) : std::string();
}

std::string composePrefix(std::string const& prefix, std::string const& sectionName) {
    return sectionName.empty() ? prefix : prefix + sectionName + ".";
}

SettingNames::SettingNames(ParameterGroup const& root) { root.accept(*this); }

bool SettingNames::visitGroupStart(ParameterGroup const& group) {
    if (mSections.empty()) {
        mSections.push_back({&group, composePrefix({}, composeRootName(group, 1))});
        mOpenSections.push_back(0);
        return true;
    }
    auto const around = mOpenSections.back();
    if (group.getGroupType() != ParameterGroup::CONTAINER) {
        mOpenSections.push_back(around);
        return true;
    }
    mNames.push_back({&group, around, false});
    mOpenSections.push_back(mSections.size());
    mSections.push_back({&group, composePrefix(mSections[around].prefix, composeSectionName(group, 1))});
    return true;
}

void SettingNames::visitGroupEnd(ParameterGroup const&) { mOpenSections.pop_back(); }

bool SettingNames::visitParameter(Parameter const& parameter) {
    if (!parameter.isHidden() && !mOpenSections.empty()) {
        mNames.push_back({&parameter, mOpenSections.back(), true});
    }
    return true;
}

/// Offers the names of the section first: of two that are equally close the first one counts.
template <class IsOffered>
std::string SettingNames::suggest(ParameterGroup const& section, std::string const& prefix, std::string_view given,
                                  IsOffered isOffered) const {
    ClosestName closest(given);
    Name const* best = nullptr;
    for (bool const isInside : {true, false}) {
        for (auto const& name : mNames) {
            if ((mSections[name.section].group == &section) != isInside || !isOffered(name, isInside)) {
                continue;
            }
            auto const* const before = closest.get();
            closest.offer(name.item->getId());
            closest.offer(name.item->getName());
            best = closest.get() == before ? best : &name;
        }
    }
    if (!best) {
        return {};
    }
    auto const& own = mSections[best->section];
    return (own.group == &section ? prefix : own.prefix) + best->item->getId();
}

std::string SettingNames::suggestSetting(ParameterGroup const& section, std::string const& prefix,
                                         std::string_view given) const {
    return suggest(section, prefix, given, [](Name const& name, bool) { return name.isParameter; });
}

std::string SettingNames::suggestElement(ParameterGroup const& section, std::string const& prefix,
                                         std::string_view given) const {
    return suggest(section, prefix, given, [&](Name const& name, bool isInside) {
        return !isInside || section.getItem(name.item->getId(), false);
    });
}

} // namespace kivo::configuration
