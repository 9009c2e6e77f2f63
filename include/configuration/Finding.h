#pragma once

#include <configuration/Export.h>
#include <configuration/Origin.h>

#include <memory>
#include <string>

namespace kivo::configuration {

/// One thing that is to be said about what was given or declared: what, where, how serious, and what was probably
/// meant.
///
/// A finding is a value: cheap to copy, and it refers to nothing that could go away. Findings may be read and copied by
/// any number of threads.
class KIVO_CONFIGURATION_API Finding {
public:
    /// How serious a finding is.
    enum Severity {
        ERROR_SEVERITY = 0,  ///< it makes a request fail, the read of a value, or the load of a registry file
        WARNING_SEVERITY = 1 ///< the library goes on without a word
    };

    /// A finding that shows its message as it is.
    /// @param severity   error or warning
    /// @param rule       short name of what was broken, such as "unknown-setting", copied; not null
    /// @param message    the text for users, copied; not null
    /// @param origin     where what it is about was given or declared; unknown for what is missing
    /// @param suggestion the name or label that was probably meant, copied; null or empty: nothing
    /// @throws kivo::ContractViolationException "rule != 0 && strlen(rule) > 0", "message != 0"
    Finding(Severity severity, char const* rule, char const* message, Origin const& origin, char const* suggestion);
    /// The same finding.
    Finding(Finding const& other) noexcept;
    /// Makes this the same finding.
    Finding& operator=(Finding const& other) noexcept;
    ~Finding();

    /// Error or warning.
    Severity getSeverity() const noexcept;
    /// The name of the rule, in lower case with hyphens. Lives as long as this object, as all texts.
    char const* getRule() const noexcept;
    /// The message, as it was given: it may hold line ends and control characters of a user. In place of a secret text
    /// it has "****"; of what a validator says about one, nothing is left.
    char const* getMessage() const noexcept;
    /// The message as a request would throw it, with secret texts. Do not show it.
    char const* revealMessage() const noexcept;
    /// Where what it is about was given or declared. Of an unknown source when it is about something that is missing.
    Origin getOrigin() const;
    /// What was probably meant, or null.
    char const* getSuggestion() const noexcept;

private:
    friend class FindingList;
    /// The same finding, but that getMessage() gives another message.
    KIVO_CONFIGURATION_LOCAL Finding(Finding const& other, std::string const& masked);

    class KIVO_CONFIGURATION_LOCAL Impl;
    std::shared_ptr<Impl const> mImpl;
};

} // namespace kivo::configuration
