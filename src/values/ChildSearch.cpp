#include "kernel/kvProcessInit.h"

#include "values/ChildSearch.h"

#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

namespace kivo::configuration {

ParameterValueGroup* findChildGroup(ParameterValueGroup const& parent, char const* id) {
    return static_cast<ParameterValueGroup*>(findChild(parent, id, ParameterValueItem::PARAMETER_VALUE_GROUP));
}

ParameterValue* findChildValue(ParameterValueGroup const& parent, char const* id) {
    return static_cast<ParameterValue*>(findChild(parent, id, ParameterValueItem::PARAMETER_VALUE));
}

} // namespace kivo::configuration
