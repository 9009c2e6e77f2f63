#include "kernel/kvProcessInit.h"

#include "providers/ParameterSearchVisitor.h"

#include <configuration/Parameter.h>

#include "schema/ContractChecks.h"
#include "schema/NameComparison.h"

namespace kivo::configuration {

ParameterSearchVisitor::ParameterSearchVisitor(char const* name) : mName(name) {}

bool ParameterSearchVisitor::visitParameter(Parameter const& parameter) {
    if (!parameter.isHidden() && beginsIgnoringCase(parameter.getName(), mName)) {
        mFoundItems.push_back(&parameter);
    }
    return true;
}

unsigned long ParameterSearchVisitor::getNumberOfFoundItems() const { return mFoundItems.size(); }

Parameter const* ParameterSearchVisitor::getFoundItem(unsigned long index) const {
    KIVO_REQUIRE(index < mFoundItems.size());
    return mFoundItems[index];
}

} // namespace kivo::configuration
