#pragma once

#include <cstdarg>

namespace kivo::configuration {

/// One message, written as by printf and cut silently at 4,095 characters.
class MessageBuffer {
public:
    void format(char const* format, std::va_list arguments) noexcept __attribute__((format(printf, 2, 0)));

    char const* get() const { return mText; }

private:
    char mText[4096] = "";
};

} // namespace kivo::configuration
