#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Memory.h>

#include "schema/MessageFormat.h"

namespace kivo::configuration {

ConfigurationException::ConfigurationException(char const* format, ...) {
    if (format) {
        std::va_list arguments;
        va_start(arguments, format);
        setMessage(formatMessage(format, arguments).c_str());
        va_end(arguments);
    }
}

ConfigurationException::ConfigurationException(ConfigurationException const& other)
    : kvException(other), mMessage(cloneString(other.mMessage.get())) {}

ConfigurationException& ConfigurationException::operator=(ConfigurationException const& other) {
    if (this != &other) {
        kvException::operator=(other);
        mMessage.reset(cloneString(other.mMessage.get()));
    }
    return *this;
}

ConfigurationException::~ConfigurationException() = default;

char const* ConfigurationException::what() const noexcept { return mMessage.get(); }

void ConfigurationException::setMessage(char const* message) { mMessage.reset(cloneString(message)); }

} // namespace kivo::configuration
