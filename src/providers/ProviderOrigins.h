#pragma once

namespace kivo::configuration {

class ParameterValueGroup;
class StoredOrigin;
class ValueProvider;

/// Gives an origin to every text and every group of a tree that has none.
void fillOrigins(ParameterValueGroup& values, StoredOrigin const& origin);

/// As above, for values of a provider of the caller's own. The library's providers, which are asked in every request,
/// say where their values come from, so nothing is done for them.
void fillOrigins(ParameterValueGroup& values, ValueProvider const& provider);

} // namespace kivo::configuration
