#pragma once

#include "kernel/kvKivo.h"

#include <string>

namespace kivo::configuration {

/// Adds a record of this library, whose records all have one category, to the kernel's main log.
/// @param text any number of lines
inline void addToMainLog(std::string const& text) { kvKivo::addToMainLog("Configuration", text.c_str()); }

} // namespace kivo::configuration
