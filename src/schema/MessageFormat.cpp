#include "kernel/kvProcessInit.h"

#include "schema/MessageFormat.h"

#include <cstdio>

namespace kivo::configuration {

std::string formatMessage(char const* format, std::va_list arguments) {
    char buffer[4096] = "";
    // A negative result means that nothing sensible could be written; the buffer is terminated all the same.
    if (std::vsnprintf(buffer, sizeof(buffer), format, arguments) < 0) {
        buffer[0] = '\0';
    }
    return buffer;
}

} // namespace kivo::configuration
