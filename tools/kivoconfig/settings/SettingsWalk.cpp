#include "settings/SettingsWalk.h"

#include "text/Characters.h"
#include "text/CodePage.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/Specification.h>

using namespace kivo::configuration;

namespace kivoconfig {

void SettingsWalk::walk(Specification const& specification) { walkSection(*specification.getParameterGroup()); }

void SettingsWalk::walkSection(ParameterGroup const& section) {
    mSections.clear();
    section.accept(*this);
}

bool SettingsWalk::onSectionStart(ParameterGroup const&) { return true; }
void SettingsWalk::onSectionEnd(ParameterGroup const&) {}

bool SettingsWalk::visitGroupStart(ParameterGroup const& group) {
    if (group.getGroupType() == ParameterGroup::CONSTRAINT) {
        mSections.back().constraints.push_back({&group});
        return true;
    }
    if (!mSections.empty() && (!mSections.back().constraints.empty() || !isFirstOfItsId(group))) {
        return false;
    }
    mSections.emplace_back();
    bool const isEntered = onSectionStart(group);
    if (!isEntered) {
        mSections.pop_back();
    }
    return isEntered;
}

void SettingsWalk::visitGroupMiddle(ParameterGroup const&) {
    if (auto& constraints = mSections.back().constraints; !constraints.empty()) {
        ++constraints.back().position;
    }
}

void SettingsWalk::visitGroupEnd(ParameterGroup const& group) {
    if (group.getGroupType() == ParameterGroup::CONSTRAINT) {
        mSections.back().constraints.pop_back();
        return;
    }
    onSectionEnd(group);
    mSections.pop_back();
}

bool SettingsWalk::visitParameter(Parameter const& parameter) {
    if (!isFirstOfItsId(parameter)) {
        return true;
    }
    Setting setting{parameter, mSections.back().constraints.empty(), {}, findDefault(parameter)};
    for (auto const& constraint : mSections.back().constraints) {
        if (constraint.group->itemsAreExclusive()) {
            setting.alternatives.push_back({constraint.group, constraint.position});
        }
    }
    onSetting(setting);
    return true;
}

bool SettingsWalk::isFirstOfItsId(ParameterItem const& item) {
    return mSections.back().ids.insert(folded(item.getId())).second;
}

/// A required setting never uses its default, and in an optional choice none applies. In any other choice, it is the
/// first alternative with a default that gets it.
std::optional<std::string> SettingsWalk::findDefault(Parameter const& parameter) {
    auto const* const value = parameter.getDefaultValue();
    char const* const text = value ? value->getValue(0, false) : nullptr;
    bool applies = text && parameter.isOptional();
    for (auto& constraint : mSections.back().constraints) {
        if (applies && constraint.group->itemsAreExclusive()) {
            applies = !constraint.group->isOptional() &&
                      constraint.defaultPosition.value_or(constraint.position) == constraint.position;
            constraint.defaultPosition = constraint.defaultPosition.value_or(constraint.position);
        }
    }
    return applies ? std::optional(toUtf8(text)) : std::nullopt;
}

} // namespace kivoconfig
