#pragma once

#include "settings/SettingsWalk.h"

#include <map>
#include <string>
#include <vector>

namespace kivoconfig {

/// What the words of a tool's command line, as far as they were typed, mean: which flags are given, and what the last
/// word is about. Texts are UTF-8.
class TypedWords final : public SettingsWalk {
public:
    /// @param specification of the tool; must outlive this object
    /// @param words         without the tool's name; the last one is being typed
    TypedWords(kivo::configuration::Specification const& specification, std::vector<std::string> words);

    /// The word that is being typed.
    std::string const& getLast() const { return mLast; }
    /// Whether it may be a flag, and whether it may be a value.
    bool canBeFlag() const { return mLast.starts_with('-') || !mHasFlagBefore || isAfterSwitch(); }
    bool canBeValue() const { return mHasFlagBefore && !mLast.starts_with('-'); }
    /// The setting of the flag before the last word; null when it is none of this specification.
    Setting const* getSettingBefore() const { return mSettingBefore; }
    /// Whether the word before names a values file to come.
    bool isAfterFileFlag() const { return mIsAfterFileFlag; }
    /// The flags that can be given in addition, in the order of the specification.
    std::vector<Setting const*> findFurtherFlags() const;

private:
    bool onSectionStart(kivo::configuration::ParameterGroup const& section) override;
    void onSetting(Setting const& setting) override;
    bool isAfterSwitch() const;
    void read(std::string const& word);
    Setting const* resolve(std::string const& flag) const;
    bool isExcluded(Setting const& setting) const;

    std::vector<Setting> mFlags; ///< in order
    std::string mLast;
    bool mHasFlagBefore = false;
    bool mIsAfterFileFlag = false;
    Setting const* mSettingBefore = nullptr;
    std::set<Setting const*> mGiven;
    std::map<kivo::configuration::ParameterGroup const*, unsigned long> mChosen; ///< alternatives, by their choice
};

/// The flag that names a values file; every tool that reads values files knows it.
inline constexpr char const* FILE_FLAG = "-loadConfiguration";

/// The flag of a setting, as it is written.
std::string flagOf(kivo::configuration::Parameter const& parameter);

} // namespace kivoconfig
