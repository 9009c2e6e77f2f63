#pragma once

#include <configuration/ConfigurationException.h>
#include <configuration/Export.h>
#include <configuration/ParameterErrors.h>

namespace kivo::configuration {

/// The faults of one phase over user input, thrown together.
class KIVO_CONFIGURATION_API ConfigurationParameterException : public ConfigurationException {
public:
    /// Keeps an independent copy of the list. The exception's own origin is that of the first fault that has one.
    /// @param errors the faults
    /// @param format printf-style text of the message, which then does not name the single faults (cut at 4,095
    ///        characters); null: the message is composeMessage(errors), of any length
    ConfigurationParameterException(ParameterErrors const& errors, char const* format, ...)
        KIVO_CONFIGURATION_PRINTF(3, 4);
    /// An independent copy of message and list.
    ConfigurationParameterException(ConfigurationParameterException const& other);
    ConfigurationParameterException& operator=(ConfigurationParameterException const& other) = delete;
    ~ConfigurationParameterException() override;

    /// The single faults; the list lives as long as this exception.
    ParameterErrors const& getErrors() const noexcept;

private:
    ParameterErrors mErrors;
};

} // namespace kivo::configuration
