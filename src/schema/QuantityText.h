#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

// Sizes and durations as users write them: a number with a unit, letter by letter as the documentation of registry
// files describes them. Exact: nothing is rounded, and what does not fit is refused.

namespace kivo::configuration {

/// The bytes of a size such as "64", "1.5k" or "2 GiB"; nothing for any other text.
std::optional<std::uint64_t> parseSize(std::string_view text);

/// The milliseconds of a duration such as "1d12h" or "250ms"; nothing for any other text.
std::optional<std::int64_t> parseDuration(std::string_view text);

} // namespace kivo::configuration
