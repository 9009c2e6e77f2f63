#include "settings/TypedWords.h"

#include "text/Characters.h"
#include "text/CodePage.h"

#include <configuration/Parameter.h>
#include <configuration/Specification.h>

#include <algorithm>

using namespace kivo::configuration;

namespace kivoconfig {

TypedWords::TypedWords(Specification const& specification, std::vector<std::string> words) {
    walk(specification);
    if (!words.empty()) {
        mLast = std::move(words.back());
        words.pop_back();
    }
    std::ranges::for_each(words, [this](std::string const& word) { read(word); });
}

bool TypedWords::onSectionStart(ParameterGroup const&) { return getDepth() == 0; }

void TypedWords::onSetting(Setting const& setting) {
    if (!setting.parameter.isHidden()) {
        mFlags.push_back(setting);
    }
}

/// A flag of a bool needs no value.
bool TypedWords::isAfterSwitch() const {
    return mSettingBefore && mSettingBefore->parameter.getValueType() == Parameter::BOOLEAN_PARAMETER;
}

void TypedWords::read(std::string const& word) {
    mHasFlagBefore = word.starts_with('-');
    mIsAfterFileFlag = folded(word) == folded(FILE_FLAG);
    mSettingBefore = mHasFlagBefore ? resolve(word) : nullptr;
    if (mSettingBefore) {
        mGiven.insert(mSettingBefore);
        for (auto const& alternative : mSettingBefore->alternatives) {
            mChosen.emplace(alternative.choice, alternative.position);
        }
    }
}

/// The setting that a flag means: the one of this name, or the only one whose name begins like this.
Setting const* TypedWords::resolve(std::string const& flag) const {
    auto const wanted = folded(flag);
    Setting const* found = nullptr;
    bool isAmbiguous = false;
    for (auto const& setting : mFlags) {
        auto const name = folded(flagOf(setting.parameter));
        if (name == wanted) {
            return &setting;
        }
        if (name.starts_with(wanted)) {
            isAmbiguous = found;
            found = &setting;
        }
    }
    return isAmbiguous ? nullptr : found;
}

bool TypedWords::isExcluded(Setting const& setting) const {
    return std::ranges::any_of(setting.alternatives, [this](Alternative const& alternative) {
        auto const chosen = mChosen.find(alternative.choice);
        return chosen != mChosen.end() && chosen->second != alternative.position;
    });
}

std::vector<Setting const*> TypedWords::findFurtherFlags() const {
    std::vector<Setting const*> further;
    for (auto const& setting : mFlags) {
        bool const canBeGiven = setting.parameter.isUnbounded() || !mGiven.contains(&setting);
        if (canBeGiven && !isExcluded(setting)) {
            further.push_back(&setting);
        }
    }
    return further;
}

std::string flagOf(Parameter const& parameter) { return '-' + toUtf8(parameter.getName()); }

} // namespace kivoconfig
