#pragma once

#include <configuration/Export.h>

/// @file
/// Releasing what the library made, and copying texts that are handed over.

namespace kivo::configuration {

class ParameterEnumDefinition;
class ParameterItem;
class ParameterValidator;
class Specification;

/// Deletes an item that no manager owns. Null is ignored. Groups that still refer to the item are not told.
KIVO_CONFIGURATION_API void destroy(ParameterItem const* item);
/// Deletes a validator that no manager owns. Null is ignored.
KIVO_CONFIGURATION_API void destroy(ParameterValidator const* validator);
/// Deletes an enumeration definition that no manager owns. Null is ignored.
KIVO_CONFIGURATION_API void destroy(ParameterEnumDefinition const* enumDefinition);
/// Deletes a specification that no manager owns. Null is ignored. Its items are not touched.
KIVO_CONFIGURATION_API void destroy(Specification const* specification);

/// A copy of a text in a new array that the caller frees with `delete[]`; null for null. Validators return their
/// messages this way.
KIVO_CONFIGURATION_API char* cloneString(char const* s);

} // namespace kivo::configuration
