#pragma once

#include <configuration/Export.h>

/// @file
/// What a message about an unknown name can offer: "did you mean …?"

namespace kivo::configuration {

/// The one of some names that a user may have meant by one that is not among them.
///
/// A name is close when at most two changes, and at most a third of the given name's length in bytes, lead to it: a
/// letter too many, a missing one, a wrong one, or two neighbours in the wrong order. Letter case is free. May be
/// called by any number of threads. The time taken is linear in the total length of the names.
/// @param given         what was written; null is close to nothing
/// @param names         an array of texts, none of them null; the array may be null when there are none
/// @param numberOfNames their number
/// @return the closest name, of several the first, as the array has it; null when none is close
KIVO_CONFIGURATION_API char const* suggestName(char const* given, char const* const* names,
                                               unsigned long numberOfNames);

} // namespace kivo::configuration
