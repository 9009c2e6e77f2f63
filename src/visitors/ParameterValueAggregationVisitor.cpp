#include "kernel/kvProcessInit.h"

#include "visitors/ParameterValueAggregationVisitor.h"

#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

#include "values/ChildSearch.h"
#include "values/GroupEditing.h"
#include "visitors/RootGroup.h"

namespace kivo::configuration {

ParameterValueAggregationVisitor::ParameterValueAggregationVisitor(Specification const* specification,
                                                                   ParameterValueGroup& target, ParameterErrors& errors,
                                                                   bool flattenConstraints)
    : ParameterValueVisitor(false),
      mRootGroup(rootGroupOf(specification)),
      mErrors(&errors),
      mTargetStack{&target},
      mFlattenConstraints(flattenConstraints) {}

bool ParameterValueAggregationVisitor::visitGroupStart(ParameterValueGroup& group) {
    bool const inSpecification = isInSpecification(group);
    mInSpecificationStack.push_back(inSpecification);
    mTargetStack.push_back(inSpecification ? &findTarget(group) : mTargetStack.back());
    mTakerStack.emplace_back(group);
    return true;
}

bool ParameterValueAggregationVisitor::isInSpecification(ParameterValueGroup const& group) const {
    auto const* schemaGroup = group.getParameterGroup();
    return schemaGroup && (schemaGroup == mRootGroup || isGroupInSpecification(holderOf(group)));
}

/// The group into which the items of a group of the specification go: the current target itself, a child of it that is
/// there, or a copy that is added to it.
ParameterValueGroup& ParameterValueAggregationVisitor::findTarget(ParameterValueGroup& group) {
    auto& target = *mTargetStack.back();
    auto const& schemaGroup = *group.getParameterGroup();
    if (mFlattenConstraints && schemaGroup.getGroupType() == ParameterGroup::CONSTRAINT) {
        return target;
    }
    if (!schemaGroup.isUnbounded()) {
        if (auto* child = findChildGroup(target, schemaGroup.getId())) {
            return *child;
        }
    }
    if (&target == &group) {
        return target;
    }
    auto* copy = group.clone(ParameterValueItem::SHALLOW_COPY);
    target.addItem(copy);
    return *copy;
}

void ParameterValueAggregationVisitor::visitGroupEnd(ParameterValueGroup&) {
    mTakerStack.pop_back();
    mTargetStack.pop_back();
    mInSpecificationStack.pop_back();
}

bool ParameterValueAggregationVisitor::visitParameterValue(ParameterValue& value) {
    auto const* parameter = value.getParameter();
    if (mInSpecificationStack.empty() || !mInSpecificationStack.back() || !parameter) {
        return true;
    }
    auto& target = *mTargetStack.back();
    auto* existing = findChildValue(target, parameter->getId());
    if (!existing) {
        target.addItem(takeOrCopy(value).release());
    } else if (parameter->isUnbounded()) {
        appendTexts(*existing, value);
    }
    return true;
}

std::unique_ptr<ParameterValueItem> ParameterValueAggregationVisitor::takeOrCopy(ParameterValue& value) {
    auto taken = mTakerStack.back().take(value);
    return taken ? std::move(taken) : std::unique_ptr<ParameterValueItem>(value.clone(ParameterValueItem::DEEP_COPY));
}

bool ParameterValueAggregationVisitor::isGroupInSpecification(ParameterValueGroup const* group) const {
    for (; group && group->getParameterItem(); group = holderOf(*group)) {
        if (group->getParameterItem() == mRootGroup) {
            return true;
        }
    }
    return false;
}

} // namespace kivo::configuration
