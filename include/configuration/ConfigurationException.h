#pragma once

#include <configuration/Export.h>
#include <configuration/Origin.h>
#include <kernel/kvException.h>

#include <memory>

namespace kivo::configuration {

/// A single fault in the schema or in a lookup: an id that is taken, a validator or value group that does not exist.
///
/// Owns its text: a copy is independent of its source.
class KIVO_CONFIGURATION_API ConfigurationException : public kvException {
public:
    /// Formats the message as by printf, cut silently at 4,095 characters.
    /// @param format never text that came from a user; null leaves the exception without a message
    explicit ConfigurationException(char const* format, ...) KIVO_CONFIGURATION_PRINTF(2, 3);
    /// An independent copy of the message.
    ConfigurationException(ConfigurationException const& other);
    ConfigurationException& operator=(ConfigurationException const& other) = delete;
    ~ConfigurationException() override;

    /// The message; it lives as long as this object. Null only when the format was null.
    char const* what() const noexcept override;

    /// Where what the exception is about was given or declared. Of an unknown source when it is about something that is
    /// missing, and when whoever threw it did not say. Beside the message, which does not depend on it.
    Origin getOrigin() const noexcept;
    /// Says where.
    void setOrigin(Origin const& origin) noexcept;

protected:
    /// Replaces the message by a copy of a finished text of any length.
    void setMessage(char const* message);

private:
    std::unique_ptr<char[]> mMessage;
    Origin mOrigin;
};

} // namespace kivo::configuration
