#include "kernel/kvProcessInit.h"

#include "visitors/ConstraintFinderVisitor.h"

#include <configuration/Parameter.h>

namespace kivo::configuration {

ConstraintFinderVisitor::ConstraintFinderVisitor(std::string const& parameterName) : mParameterName(parameterName) {}

bool ConstraintFinderVisitor::visitGroupStart(ParameterGroup const& group) {
    if (!mFound) {
        mGroupPath.push_back(&group);
    }
    return true;
}

void ConstraintFinderVisitor::visitGroupEnd(ParameterGroup const&) {
    if (!mFound) {
        mGroupPath.pop_back();
    }
}

bool ConstraintFinderVisitor::visitParameter(Parameter const& parameter) {
    if (!mFound) {
        mFound = mParameterName == parameter.getName();
    }
    return true;
}

std::vector<ParameterGroup const*> const& ConstraintFinderVisitor::getGroupPath() const { return mGroupPath; }

} // namespace kivo::configuration
