#include "kernel/kvProcessInit.h"

#include "values/DefaultText.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterValue.h>

namespace kivo::configuration {

char const* defaultTextOf(Parameter const& parameter) {
    auto const* value = parameter.getDefaultValue();
    // Without its own default: a default that has no text, of a caller's own parameter, would ask for itself for ever.
    return value && value->getNumberOfValues() > 0 ? value->getValue(0, true) : nullptr;
}

} // namespace kivo::configuration
