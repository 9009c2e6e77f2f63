#pragma once

#include <cstdlib>

namespace kivo::kernel {

/// An environment variable, null when it is unset or empty. A program that runs with raised privileges sees none, since
/// its caller chose them. Lives until the environment is changed.
inline char const* environmentValue(char const* name) {
    auto const* value = secure_getenv(name);
    return value && *value != '\0' ? value : nullptr;
}

} // namespace kivo::kernel
