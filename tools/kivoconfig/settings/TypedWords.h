#pragma once

#include "settings/SettingsWalk.h"

#include <configuration/CommandLineStyle.h>

#include <map>
#include <string>
#include <vector>

namespace kivoconfig {

/// What the words of a tool's command line, as far as they were typed, mean: which flags are given, and what the last
/// word is about. Texts are UTF-8.
class TypedWords final : public SettingsWalk {
public:
    /// A setting as a flag gives it.
    struct Flag {
        Setting setting;
        std::string name; ///< without dashes; in GNU style with the sections before it
    };

    /// @param specification of the tool; must outlive this object
    /// @param style         of the tool's command line
    /// @param words         without the tool's name; the last one is being typed
    TypedWords(kivo::configuration::Specification const& specification, kivo::configuration::CommandLineStyle style,
               std::vector<std::string> words);

    /// The word that is being typed; of a flag with an equals sign, the value.
    std::string const& getLast() const { return mLast; }
    /// What stands before it in the same word: a flag with an equals sign, or nothing.
    std::string const& getJoined() const { return mJoined; }
    /// Whether it may be a flag, and whether it may be a value.
    bool canBeFlag() const;
    bool canBeValue() const;
    /// The setting of the flag before the last word; null when it is none of this specification.
    Setting const* getSettingBefore() const { return mFlagBefore ? &mFlagBefore->setting : nullptr; }
    /// Whether the flag before names a values file to come.
    bool isAfterFileFlag() const { return mIsAfterFileFlag; }
    /// The dashes of a flag that is to replace the last word.
    char const* getDashes() const;
    /// The flags that can be given in addition, in the order of the specification.
    std::vector<Flag const*> findFurtherFlags() const;

private:
    bool onSectionStart(kivo::configuration::ParameterGroup const& section) override;
    void onSectionEnd(kivo::configuration::ParameterGroup const& section) override;
    void onSetting(Setting const& setting) override;
    bool isGnu() const { return mStyle == kivo::configuration::GNU_COMMAND_LINE; }
    void read(std::string const& word);
    void readFlag(std::string const& flag);
    Flag const* resolve(std::string const& name) const;
    bool isExcluded(Setting const& setting) const;

    kivo::configuration::CommandLineStyle mStyle;
    std::vector<std::string> mPrefixes; ///< of the sections around a setting
    std::vector<Flag> mFlags;           ///< in order
    std::string mLast;
    std::string mJoined;
    bool mHasFlagBefore = false;
    bool mIsAfterFileFlag = false;
    bool mIsAfterFlags = false;
    Flag const* mFlagBefore = nullptr;
    std::set<Flag const*> mGiven;
    std::map<kivo::configuration::ParameterGroup const*, unsigned long> mChosen; ///< alternatives, by their choice
};

/// The flag that names a values file; every tool that reads values files knows it.
inline constexpr char const* FILE_FLAG = "-loadConfiguration";

/// Whether a flag of a parameter needs no value.
bool isSwitch(kivo::configuration::Parameter const& parameter);

} // namespace kivoconfig
