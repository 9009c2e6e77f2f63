#include "kernel/kvProcessInit.h"

#include "visitors/ConstraintFinderVisitor.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>

#include "schema/SubtreeIndex.h"

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

std::vector<ParameterGroup const*> findGroupPath(ParameterGroup const& group, char const* parameterName) {
    if (auto const subtree = SubtreeIndex::of(group)) {
        return subtree->pathToParameter(parameterName);
    }
    ConstraintFinderVisitor finder(parameterName);
    group.accept(finder);
    return finder.getGroupPath();
}

} // namespace kivo::configuration
