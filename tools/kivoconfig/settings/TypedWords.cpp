#include "settings/TypedWords.h"

#include "text/Characters.h"
#include "text/CodePage.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/Specification.h>

#include <algorithm>

using namespace kivo::configuration;

namespace kivoconfig {

TypedWords::TypedWords(Specification const& specification, CommandLineStyle style, std::vector<std::string> words)
    : mStyle(style) {
    walk(specification);
    if (!words.empty()) {
        mLast = std::move(words.back());
        words.pop_back();
    }
    std::ranges::for_each(words, [this](std::string const& word) { read(word); });
    auto const sign = isGnu() && mLast.starts_with('-') && !mIsAfterFlags ? mLast.find('=') : std::string::npos;
    if (sign != std::string::npos) {
        mJoined = mLast.substr(0, sign + 1);
        readFlag(mLast.substr(0, sign));
        mLast.erase(0, sign + 1);
    }
}

/// The settings of sections are given in GNU style only, and not where the section repeats.
bool TypedWords::onSectionStart(ParameterGroup const& section) {
    bool const isRoot = getDepth() == 0;
    if (!isRoot && (!isGnu() || section.isUnbounded())) {
        return false;
    }
    mPrefixes.push_back(isRoot ? "" : mPrefixes.back() + toUtf8(section.getId()) + '.');
    return true;
}

void TypedWords::onSectionEnd(ParameterGroup const&) { mPrefixes.pop_back(); }

void TypedWords::onSetting(Setting const& setting) {
    mFlags.push_back({setting, mPrefixes.back() + toUtf8(setting.parameter.getName())});
}

bool TypedWords::canBeFlag() const {
    if (!mJoined.empty() || mIsAfterFlags) {
        return false;
    }
    bool const isAfterSwitch = mFlagBefore && isSwitch(mFlagBefore->setting.parameter);
    return mLast.starts_with('-') || !mHasFlagBefore || isAfterSwitch;
}

bool TypedWords::canBeValue() const {
    return !mJoined.empty() || (mHasFlagBefore && !mIsAfterFlags && !mLast.starts_with('-'));
}

char const* TypedWords::getDashes() const {
    bool const isOne = mLast.size() > 1 && mLast.starts_with('-') && mLast[1] != '-';
    return isGnu() && !isOne ? "--" : "-";
}

void TypedWords::read(std::string const& word) {
    auto const end = isGnu() ? word.find('=') : std::string::npos;
    mIsAfterFlags = mIsAfterFlags || (isGnu() && word == "--");
    mHasFlagBefore = word.starts_with('-') && !mIsAfterFlags;
    mIsAfterFileFlag = false;
    mFlagBefore = nullptr;
    if (mHasFlagBefore) {
        readFlag(word.substr(0, end));
        bool const isComplete =
            end != std::string::npos || (isGnu() && mFlagBefore && isSwitch(mFlagBefore->setting.parameter));
        mHasFlagBefore = !isComplete;
    }
}

/// @param flag with its dashes
void TypedWords::readFlag(std::string const& flag) {
    auto const name = flag.substr(isGnu() && flag.starts_with("--") ? 2 : 1);
    mIsAfterFileFlag = '-' + folded(name) == folded(FILE_FLAG);
    mFlagBefore = resolve(name);
    if (!mFlagBefore && isGnu() && folded(name).starts_with("no-")) {
        mFlagBefore = resolve(name.substr(3));
    }
    if (mFlagBefore) {
        mGiven.insert(mFlagBefore);
        for (auto const& alternative : mFlagBefore->setting.alternatives) {
            mChosen.emplace(alternative.choice, alternative.position);
        }
    }
}

/// The setting that a flag means: the one of this name, or the only visible one whose name begins like this.
TypedWords::Flag const* TypedWords::resolve(std::string const& given) const {
    auto const wanted = folded(given);
    Flag const* found = nullptr;
    bool isAmbiguous = false;
    for (auto const& flag : mFlags) {
        auto const name = folded(flag.name);
        if (name == wanted) {
            return &flag;
        }
        if (!flag.setting.parameter.isHidden() && name.starts_with(wanted)) {
            isAmbiguous = found;
            found = &flag;
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

std::vector<TypedWords::Flag const*> TypedWords::findFurtherFlags() const {
    std::vector<Flag const*> further;
    for (auto const& flag : mFlags) {
        bool const canBeGiven = flag.setting.parameter.isUnbounded() || !mGiven.contains(&flag);
        if (!flag.setting.parameter.isHidden() && canBeGiven && !isExcluded(flag.setting)) {
            further.push_back(&flag);
        }
    }
    return further;
}

bool isSwitch(Parameter const& parameter) {
    return parameter.isOptional() && parameter.getValueType() == Parameter::BOOLEAN_PARAMETER;
}

} // namespace kivoconfig
