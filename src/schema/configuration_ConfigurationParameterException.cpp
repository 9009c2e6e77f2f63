#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationParameterException.h>

#include "schema/MessageFormat.h"

namespace kivo::configuration {

ConfigurationParameterException::ConfigurationParameterException(ParameterErrors const& errors, char const* format, ...)
    : ConfigurationException(nullptr), mErrors(errors) {
    if (format) {
        MessageBuffer message;
        std::va_list arguments;
        va_start(arguments, format);
        message.format(format, arguments);
        va_end(arguments);
        setMessage(message.get());
    } else {
        setMessage(composeMessage(errors).c_str());
    }
    for (unsigned long i = 0; i < errors.getNumberOfErrors() && !getOrigin().isKnown(); ++i) {
        setOrigin(errors.getOrigin(i));
    }
}

ConfigurationParameterException::ConfigurationParameterException(ConfigurationParameterException const& other) =
    default;

ConfigurationParameterException::~ConfigurationParameterException() = default;

ParameterErrors const& ConfigurationParameterException::getErrors() const noexcept { return mErrors; }

} // namespace kivo::configuration
