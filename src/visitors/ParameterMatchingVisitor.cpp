#include "kernel/kvProcessInit.h"

#include "visitors/ParameterMatchingVisitor.h"

#include <configuration/ParameterErrors.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include "schema/ItemKinds.h"
#include "schema/NameComparison.h"

namespace kivo::configuration {

namespace {

bool isNamed(char const* id) { return id && *id != '\0'; }

} // namespace

ParameterMatchingVisitor::ParameterMatchingVisitor(Specification const& specification, ParameterErrors& errors,
                                                   bool reportUnrecognized)
    : ParameterValueVisitor(false),
      mErrors(errors),
      mRootGroup(specification.getParameterGroup()),
      mSchemaIndex(*mRootGroup),
      mReportUnrecognized(reportUnrecognized) {}

bool ParameterMatchingVisitor::visitGroupStart(ParameterValueGroup& group) {
    char const* id = group.getParameterItemId();
    if (!isNamed(id)) {
        if (group.getParentGroup()) {
            mErrors.addErrorAt(group.getOrigin(), "An unnamed value group was found");
            return false;
        }
        mGroupStack.push_back(nullptr);
        return true;
    }
    auto const match = matchGroup(group, id);
    if (!match.isEntered) {
        return false;
    }
    if (match.item) {
        bindGroup(group, *match.item, id);
    }
    mGroupStack.push_back(asGroup(match.item));
    return true;
}

ParameterMatchingVisitor::GroupMatch ParameterMatchingVisitor::matchGroup(ParameterValueGroup const& group,
                                                                          char const* id) {
    bool const isRoot = equalIgnoringCase(mRootGroup->getId(), id);
    if (mGroupStack.empty()) {
        return {true, isRoot ? mRootGroup : nullptr};
    }
    if (auto const* parent = mGroupStack.back()) {
        return {true, parent->getItem(id, false)};
    }
    if (!isRoot) {
        mErrors.addErrorAt(group.getOrigin(), "Unexpected unnamed group as parent of the \"%s\" group. (Expected: %s)",
                           id, mRootGroup->getId());
        return {false, nullptr};
    }
    return {true, mRootGroup};
}

void ParameterMatchingVisitor::bindGroup(ParameterValueGroup& group, ParameterItem const& item, char const* id) {
    auto const* schemaGroup = asGroup(&item);
    if (!schemaGroup) {
        mErrors.addErrorAt(group.getOrigin(), "\"%s\" is not a parameter group", id);
    } else if (schemaGroup->getGroupType() == ParameterGroup::CONSTRAINT) {
        mErrors.addErrorAt(group.getOrigin(), "\"%s\" is a constraint. It cannot be declared explicitly", id);
    }
    setItem(group, &item); // throws when the item is no group
}

void ParameterMatchingVisitor::visitGroupEnd(ParameterValueGroup&) { mGroupStack.pop_back(); }

bool ParameterMatchingVisitor::visitParameterValue(ParameterValue& value) {
    char const* id = value.getParameterItemId();
    if (!isNamed(id)) {
        mErrors.addErrorAt(value.getOrigin(0), "An unnamed value was found");
        return true;
    }
    auto const* group = mGroupStack.empty() ? nullptr : mGroupStack.back();
    if (!group) {
        mErrors.addErrorAt(value.getOrigin(0), "Unnamed group cannot contain Parameter \"%s\"", id);
        return true;
    }
    auto const* item = mSchemaIndex.findById(*group, id);
    if (!item) {
        if (mReportUnrecognized) {
            mErrors.addErrorAt(value.getOrigin(0), "\"%s\" is not a recognized parameter", id);
        }
        return true;
    }
    if (item->getItemType() != ParameterItem::PARAMETER) {
        mErrors.addErrorAt(value.getOrigin(0), "\"%s\" is not a parameter", id);
    }
    setItem(value, item); // throws when the item is no parameter
    return true;
}

bool ParameterMatchingVisitor::setItem(ParameterValueItem& item, ParameterItem const* parameterItem) {
    if (item.getItemState() == ParameterValueItem::ASSIGNED) {
        return false;
    }
    assignParameterItem(item, parameterItem);
    return true;
}

} // namespace kivo::configuration
