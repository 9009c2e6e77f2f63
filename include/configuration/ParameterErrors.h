#pragma once

#include <configuration/Export.h>
#include <configuration/Origin.h>

#include <memory>
#include <string>

namespace kivo::configuration {

class StoredOrigin;
enum class Rule : unsigned char;

/// The faults found in user input during one phase, in the order in which they were found.
///
/// A phase collects its messages here while it goes on, and ends with throwIfErrors(), so that a user sees all of its
/// faults at once. Equal messages stay in the list. Not synchronized: a list belongs to the thread that fills it.
class KIVO_CONFIGURATION_API ParameterErrors {
public:
    /// An empty list.
    ParameterErrors();
    /// A deep copy: the two lists share nothing.
    ParameterErrors(ParameterErrors const& other);
    /// Replaces the messages by copies of the other list's; assigning a list to itself changes nothing.
    ParameterErrors& operator=(ParameterErrors const& other);
    ~ParameterErrors();

    /// Appends one message, formatted as by printf. A message longer than 4,095 characters is cut there, silently.
    /// @param format never text that came from a user: pass that as an argument of "%s"
    /// @throws kivo::ContractViolationException "format != 0 && strlen(format) > 0"; the list is unchanged
    void addError(char const* format, ...) KIVO_CONFIGURATION_PRINTF(2, 3);

    /// As addError(), with the origin of what the message is about; of two values, that of the later one.
    void addErrorAt(Origin const& origin, char const* format, ...) KIVO_CONFIGURATION_PRINTF(3, 4);

    /// Says what was probably meant by what the message at a position is about.
    /// @param suggestion the full name of a setting, or a label, copied; null: nothing
    /// @throws kivo::ContractViolationException "index < getNumberOfErrors()"
    void setSuggestion(unsigned long index, char const* suggestion);

    /// The number of messages.
    unsigned long getNumberOfErrors() const;

    /// The message at a position, counted from 0. The text lives until the list is next changed or destroyed.
    /// @throws kivo::ContractViolationException "index < getNumberOfErrors()"
    char const* getError(unsigned long index) const;

    /// Where the message at a position points to. Of an unknown source when it is about something that is missing, and
    /// when whoever added it did not say.
    /// @throws kivo::ContractViolationException "index < getNumberOfErrors()"
    Origin getOrigin(unsigned long index) const;

    /// What was probably meant, or null. The text lives until the list is next changed or destroyed.
    /// @throws kivo::ContractViolationException "index < getNumberOfErrors()"
    char const* getSuggestion(unsigned long index) const;

    /// Ends a phase: does nothing when the list is empty.
    /// @throws ConfigurationParameterException with all messages, one a line, when there is at least one
    void throwIfErrors() const;

    /// Removes all messages.
    void clear();

    /// As addErrorAt(), with the rule that is broken.
    KIVO_CONFIGURATION_LOCAL void addFault(Rule rule, StoredOrigin const& origin, char const* format, ...)
        KIVO_CONFIGURATION_PRINTF(4, 5);
    /// Says how reports show the message at a position, because it holds a secret text.
    KIVO_CONFIGURATION_LOCAL void setMaskedError(unsigned long index, std::string const& message);
    /// Gives the fault at a position another origin.
    KIVO_CONFIGURATION_LOCAL void setStoredOrigin(unsigned long index, StoredOrigin const& origin);
    /// The rule that the fault at a position breaks.
    KIVO_CONFIGURATION_LOCAL Rule getRule(unsigned long index) const;
    /// How reports show the message at a position; empty when they show it as it is.
    KIVO_CONFIGURATION_LOCAL std::string const& getMaskedError(unsigned long index) const;
    /// As getOrigin(), without a conversion.
    KIVO_CONFIGURATION_LOCAL StoredOrigin const& getStoredOrigin(unsigned long index) const;

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

/// All messages of a list, joined by line breaks, without one at the end and without any limit of length;
/// "No errors were detected" for an empty list.
KIVO_CONFIGURATION_API std::string composeMessage(ParameterErrors const& errors);

} // namespace kivo::configuration
