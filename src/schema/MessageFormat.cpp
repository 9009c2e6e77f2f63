#include "kernel/kvProcessInit.h"

#include "schema/MessageFormat.h"

#include <cstdio>

namespace kivo::configuration {

void MessageBuffer::format(char const* format, std::va_list arguments) noexcept {
    // The result does not matter: what fits is there, terminated, even when the whole could not be counted.
    static_cast<void>(std::vsnprintf(mText, sizeof(mText), format, arguments));
}

} // namespace kivo::configuration
