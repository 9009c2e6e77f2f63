#include "kernel/kvProcessInit.h"

#include "providers/HelpRequest.h"

#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

namespace kivo::configuration {

bool readsAsTrue(ParameterValueGroup const& group, char const* name) {
    auto const* value = group.getValue(name);
    return value && value->getNumberOfValues() > 0 && value->getBooleanValue(0);
}

} // namespace kivo::configuration
