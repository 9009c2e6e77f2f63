#include "kernel/kvProcessInit.h"

#include "visitors/ParameterValueGroupDefaultProviderVisitor.h"

#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValueGroup.h>

#include "values/GroupEditing.h"
#include "visitors/DefaultValueProviderVisitor.h"
#include "visitors/RootGroup.h"

namespace kivo::configuration {

ParameterValueGroupDefaultProviderVisitor::ParameterValueGroupDefaultProviderVisitor(Specification const* specification,
                                                                                     ParameterErrors& errors)
    : ParameterValueVisitor(true), mRootGroup(rootGroupOf(specification)), mErrors(errors) {}

bool ParameterValueGroupDefaultProviderVisitor::visitGroupStart(ParameterValueGroup& group) {
    bool const nothingGiven = !group.getParameterItem() && group.getNumberOfItems() == 0;
    if (nothingGiven && mRootGroup->isOptional()) {
        addGroup(group, *mRootGroup); // visited next
    } else if (group.getParameterItem() == mRootGroup) {
        DefaultValueProviderVisitor defaults(group, mErrors);
        mRootGroup->accept(defaults);
    }
    return true;
}

} // namespace kivo::configuration
