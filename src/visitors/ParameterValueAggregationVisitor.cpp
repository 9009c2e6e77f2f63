#include "kernel/kvProcessInit.h"

#include "visitors/ParameterValueAggregationVisitor.h"

#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

#include "visitors/RootGroup.h"

namespace kivo::configuration {

namespace {

void appendTexts(ParameterValue& target, ParameterValue const& source) {
    for (unsigned long i = 0; i < source.getNumberOfValues(); ++i) {
        target.addValue(source.getValue(i, false));
    }
}

/// The child of a target that has the id of a schema item and is of the kind sought, or null.
ParameterValueItem* findChild(ParameterValueGroup const& target, ParameterItem const& schemaItem,
                              ParameterValueItem::ItemType type) {
    auto* child = target.getItem(&schemaItem);
    return child && child->getItemType() == type ? child : nullptr;
}

} // namespace

ParameterValueAggregationVisitor::ParameterValueAggregationVisitor(Specification const* specification,
                                                                   ParameterValueGroup& target, ParameterErrors& errors,
                                                                   bool flattenConstraints)
    : ParameterValueVisitor(false), mRootGroup(rootGroupOf(specification)), mErrors(&errors), mTargetStack{&target},
      mFlattenConstraints(flattenConstraints) {}

bool ParameterValueAggregationVisitor::visitGroupStart(ParameterValueGroup& group) {
    bool const inSpecification = isInSpecification(group);
    mInSpecificationStack.push_back(inSpecification);
    mTargetStack.push_back(inSpecification ? &findTarget(group) : mTargetStack.back());
    return true;
}

bool ParameterValueAggregationVisitor::isInSpecification(ParameterValueGroup const& group) const {
    if (!group.getParameterItem()) {
        return false;
    }
    return group.getParameterItem() == mRootGroup || isGroupInSpecification(group.getParentGroup());
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
        if (auto* child = findChild(target, schemaGroup, ParameterValueItem::PARAMETER_VALUE_GROUP)) {
            return *static_cast<ParameterValueGroup*>(child);
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
    mTargetStack.pop_back();
    mInSpecificationStack.pop_back();
}

bool ParameterValueAggregationVisitor::visitParameterValue(ParameterValue& value) {
    auto const* parameter = value.getParameter();
    if (mInSpecificationStack.empty() || !mInSpecificationStack.back() || !parameter) {
        return true;
    }
    auto& target = *mTargetStack.back();
    auto* existing = target.getItem(parameter);
    if (!existing) {
        target.addItem(value.clone(ParameterValueItem::DEEP_COPY));
    } else if (parameter->isUnbounded() && existing->getItemType() == ParameterValueItem::PARAMETER_VALUE) {
        appendTexts(*static_cast<ParameterValue*>(existing), value);
    }
    return true;
}

bool ParameterValueAggregationVisitor::isGroupInSpecification(ParameterValueGroup const* group) const {
    for (; group && group->getParameterItem(); group = group->getParentGroup()) {
        if (group->getParameterItem() == mRootGroup) {
            return true;
        }
    }
    return false;
}

} // namespace kivo::configuration
