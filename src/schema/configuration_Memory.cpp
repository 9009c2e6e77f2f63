#include "kernel/kvProcessInit.h"

#include <configuration/Memory.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterItem.h>
#include <configuration/ParameterValidator.h>
#include <configuration/Specification.h>

namespace kivo::configuration {

void destroy(ParameterItem const* item) { delete item; }

void destroy(ParameterValidator const* validator) { delete validator; }

void destroy(ParameterEnumDefinition const* enumDefinition) { delete enumDefinition; }

void destroy(Specification const* specification) { delete specification; }

} // namespace kivo::configuration
