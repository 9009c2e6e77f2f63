#include "kernel/kvProcessInit.h"

#include "schema/SpecificationParameterGroup.h"

#include <configuration/Specification.h>

namespace kivo::configuration {

SpecificationParameterGroup::SpecificationParameterGroup(Specification const& specification)
    : ParameterGroup("$SpecId$", "$SpecName$", "$SpecDesc$", false, ITEMS_NOT_EXCLUSIVE, false, CONTAINER) {
    // A group lists its items as changeable, but nothing changes an item through this one.
    addItem(const_cast<ParameterGroup*>(specification.getParameterGroup()));
}

} // namespace kivo::configuration
