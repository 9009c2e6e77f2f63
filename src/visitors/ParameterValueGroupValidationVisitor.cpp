#include "kernel/kvProcessInit.h"

#include "visitors/ParameterValueGroupValidationVisitor.h"

#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValueGroup.h>

#include "visitors/RootGroup.h"
#include "visitors/SecondPhaseValidationVisitor.h"

namespace kivo::configuration {

ParameterValueGroupValidationVisitor::ParameterValueGroupValidationVisitor(Specification const* specification,
                                                                           ParameterErrors& errors)
    : ParameterValueVisitor(false), mRootGroup(rootGroupOf(specification)), mErrors(errors) {}

bool ParameterValueGroupValidationVisitor::visitGroupStart(ParameterValueGroup& group) {
    if (group.getParameterItem() == mRootGroup) {
        SecondPhaseValidationVisitor validation(group, mErrors);
        mRootGroup->accept(validation);
    }
    return true;
}

} // namespace kivo::configuration
