#include "kernel/kvProcessInit.h"

#include "visitors/ParameterValueGroupValidationVisitor.h"

#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValueGroup.h>

#include "visitors/RootGroup.h"
#include "visitors/SecondPhaseValidationVisitor.h"

namespace kivo::configuration {

ParameterValueGroupValidationVisitor::ParameterValueGroupValidationVisitor(Specification const* specification,
                                                                           ParameterErrors& errors, bool collects)
    : ParameterValueVisitor(false), mRootGroup(rootGroupOf(specification)), mErrors(errors), mCollects(collects) {}

bool ParameterValueGroupValidationVisitor::visitGroupStart(ParameterValueGroup& group) {
    if (group.getParameterItem() == mRootGroup) {
        auto validation = mCollects ? SecondPhaseValidationVisitor(group, mErrors, false)
                                    : SecondPhaseValidationVisitor(group, mErrors);
        mRootGroup->accept(validation);
    }
    return true;
}

} // namespace kivo::configuration
