#include "kernel/kvProcessInit.h"

#include "visitors/RootGroup.h"

#include <configuration/Specification.h>

#include "schema/ContractChecks.h"

namespace kivo::configuration {

ParameterGroup const* rootGroupOf(Specification const* specification) {
    KIVO_REQUIRE(specification != 0);
    return specification->getParameterGroup();
}

} // namespace kivo::configuration
