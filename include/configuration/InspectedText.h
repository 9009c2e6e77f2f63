#pragma once

#include <configuration/Export.h>
#include <configuration/Origin.h>

#include <memory>

namespace kivo::configuration {

/// One text that was given for a setting, or its default: where it comes from, and what became of it.
///
/// A value: cheap to copy, and it refers to nothing that could go away. Any number of threads may read and copy it.
class KIVO_CONFIGURATION_API InspectedText {
public:
    /// What became of a text.
    enum Verdict {
        WINS = 0,        ///< it is what the tool reads
        OVERRIDDEN = 1,  ///< an earlier source has it
        MERGED_AWAY = 2, ///< an earlier occurrence in the same source has it
        EXCLUDED = 3,    ///< the default of an alternative: another one has a value, or the choice is optional
        MISPLACED = 4,   ///< given for a setting of a section further inside; it stays where it was given
        NOT_USED = 5     ///< a default that does not apply: a source gives the setting, for example
    };

    /// The text as it reads, or null for an entry without one; "****" for a secret one. Lives as long as this object.
    char const* getText() const noexcept;
    /// The text as it reads, even if it is secret. For programs that need it; do not show it.
    char const* revealText() const noexcept;
    /// Where it was given.
    Origin getOrigin() const;
    /// What became of it.
    Verdict getVerdict() const noexcept;
    /// The word for a verdict: "wins", "overridden", "merged-away", "excluded", "misplaced", "not-used". Lives as long
    /// as the process.
    static char const* getVerdictName(Verdict verdict) noexcept;

    /// The same text.
    InspectedText(InspectedText const& other) noexcept;
    /// Makes this the same text.
    InspectedText& operator=(InspectedText const& other) noexcept;
    ~InspectedText();

private:
    friend class InspectedSetting;
    friend class SettingLister;
    class KIVO_CONFIGURATION_LOCAL Impl;
    explicit InspectedText(std::shared_ptr<Impl const> impl) noexcept;
    std::shared_ptr<Impl const> mImpl;
};

} // namespace kivo::configuration
