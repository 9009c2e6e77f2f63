#pragma once

// Preconditions of public operations. The condition's text is part of the interface, so it is spelled by the
// preprocessor from the condition itself; a check that passes costs a comparison, one that fails allocates nothing but
// the exception. Include <string.h> for strlen: std::strlen would show in the text.

#include <string.h>

namespace kivo {

/// @param staticText text that lives as long as the process
[[noreturn]] void throwContractViolation(char const* staticText);

} // namespace kivo

/// Requires a condition that the text spells otherwise, for conditions with odd spacing or on names of an Impl.
#define KIVO_REQUIRE_AS(text, ...)                                                                                     \
    (static_cast<bool>(__VA_ARGS__) ? static_cast<void>(0)                                                             \
                                    : ::kivo::throwContractViolation("Contract violation: \"" text "\""))

/// Requires a condition, reported in its own words. Not to be wrapped in another macro: its arguments would be
/// expanded.
#define KIVO_REQUIRE(...)                                                                                              \
    (static_cast<bool>(__VA_ARGS__) ? static_cast<void>(0)                                                             \
                                    : ::kivo::throwContractViolation("Contract violation: \"" #__VA_ARGS__ "\""))
