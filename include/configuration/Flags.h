#pragma once

/// @file
/// The bits of the `flags` argument that retrieval passes from the Manager down to the value providers.

namespace kivo::configuration {

/// Flags on the command line may be abbreviated to any unambiguous beginning of a visible parameter's name.
/// Off by default: a flag must then spell the parameter's id. Only the command-line provider looks at this bit.
inline constexpr int RESOLVE_FLAG_NAMES = 1;

/// Parameters that the specification does not know are errors; off by default: they are ignored. Given to
/// ValueProvider::enableProvider(), the bit also makes a word on the command line that is no flag's value an error;
/// without it such a word counts as a flag without a value.
inline constexpr int STRICT_RECOGNITION = 2;

} // namespace kivo::configuration
