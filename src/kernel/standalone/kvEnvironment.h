#pragma once

#include <cstdlib>

/// An environment variable, null when it is unset or empty. A program that runs with raised privileges sees none, since
/// its caller chose them. Lives until the environment is changed.
inline char const* kvEnvironmentValue(char const* name) {
    char const* const value = secure_getenv(name);
    return value && *value != '\0' ? value : nullptr;
}
