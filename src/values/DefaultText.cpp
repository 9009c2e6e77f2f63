#include "kernel/kvProcessInit.h"

#include "values/DefaultText.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterValue.h>

namespace kivo::configuration {

char const* defaultTextOf(Parameter const& parameter) {
    auto const* value = parameter.getDefaultValue();
    return value && value->getNumberOfValues() > 0 ? value->getValue(0, true) : nullptr;
}

} // namespace kivo::configuration
