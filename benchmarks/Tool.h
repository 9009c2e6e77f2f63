#pragma once

#include "Subjects.h"

#include <configuration/Manager.h>

#include <cstddef>
#include <string>

// The tool whose settings are described, given and read: an optional int, with a default, for each name.

namespace kivo::benchmarks {

inline constexpr char const* SPECIFICATION = "tool";

/// Parameters from one index on stand in containers of fifty; those before it at the top.
std::string containerName(std::size_t index);
/// Whether a parameter is the first of its container.
bool beginsContainer(std::size_t index, std::size_t firstInContainer);

void declareTool(configuration::Manager& manager, Subjects const& subjects, std::size_t firstInContainer);

} // namespace kivo::benchmarks
