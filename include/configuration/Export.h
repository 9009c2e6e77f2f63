#pragma once

/// @file
/// Symbol visibility. The library is compiled with hidden visibility: what carries KIVO_CONFIGURATION_API is its whole
/// binary interface.

/// Marks a class or function that the shared library exports.
#define KIVO_CONFIGURATION_API __attribute__((visibility("default")))

/// Keeps a class that is nested in an exported one out of the binary interface.
#define KIVO_CONFIGURATION_LOCAL __attribute__((visibility("hidden")))

/// Lets the compiler check a printf-style format against its arguments (positions count from 1, `this` included).
#define KIVO_CONFIGURATION_PRINTF(formatPosition, firstArgument)                                                       \
    __attribute__((format(printf, formatPosition, firstArgument)))
