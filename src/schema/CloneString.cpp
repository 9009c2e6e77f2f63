#include "kernel/kvProcessInit.h"

#include <configuration/Memory.h>

#include <cstring>

namespace kivo::configuration {

char* cloneString(char const* s) {
    if (!s) {
        return nullptr;
    }
    auto const size = std::strlen(s) + 1;
    auto* copy = new char[size];
    std::memcpy(copy, s, size);
    return copy;
}

} // namespace kivo::configuration
