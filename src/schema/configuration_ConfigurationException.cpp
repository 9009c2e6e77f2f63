#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Memory.h>

#include "schema/MessageFormat.h"

namespace kivo::configuration {

ConfigurationException::ConfigurationException(char const* format, ...) {
    if (format) {
        MessageBuffer message;
        std::va_list arguments;
        va_start(arguments, format);
        message.format(format, arguments);
        va_end(arguments);
        setMessage(message.get());
    }
}

ConfigurationException::ConfigurationException(ConfigurationException const& other)
    : kvException(other), mMessage(cloneString(other.mMessage.get())), mOrigin(other.mOrigin) {}

ConfigurationException::~ConfigurationException() = default;

char const* ConfigurationException::what() const noexcept { return mMessage.get(); }

Origin ConfigurationException::getOrigin() const noexcept { return mOrigin; }

void ConfigurationException::setOrigin(Origin const& origin) noexcept { mOrigin = origin; }

void ConfigurationException::setMessage(char const* message) { mMessage.reset(cloneString(message)); }

} // namespace kivo::configuration
