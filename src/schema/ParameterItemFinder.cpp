#include "kernel/kvProcessInit.h"

#include "schema/ParameterItemFinder.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>

#include "schema/NameComparison.h"

namespace kivo::configuration {

ParameterItemFinder::ParameterItemFinder(std::string const& id) : mId(id) {}

bool ParameterItemFinder::visitGroupStart(ParameterGroup const& group) { return compareItem(group); }

bool ParameterItemFinder::visitParameter(Parameter const& parameter) { return compareItem(parameter); }

ParameterItem const* ParameterItemFinder::getFound() const { return mFound; }

bool ParameterItemFinder::compareItem(ParameterItem const& item) {
    if (mFound) {
        return false;
    }
    if (!equalIgnoringCase(item.getId(), mId)) {
        return true;
    }
    mFound = &item;
    return false;
}

} // namespace kivo::configuration
