#include "kernel/kvProcessInit.h"

#include "visitors/FirstPhaseValidationVisitor.h"

#include <configuration/ParameterErrors.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

namespace kivo::configuration {

namespace {

/// The id of an item as a message shows it.
char const* shownId(ParameterValueItem const& item) {
    char const* id = item.getParameterItemId();
    return id ? id : "";
}

bool isBoundedContainer(ParameterGroup const* schemaGroup) {
    return schemaGroup && schemaGroup->getGroupType() == ParameterGroup::CONTAINER && !schemaGroup->isUnbounded();
}

} // namespace

FirstPhaseValidationVisitor::FirstPhaseValidationVisitor(ParameterErrors& errors)
    : ParameterValueVisitor(false), mErrors(errors) {}

bool FirstPhaseValidationVisitor::visitGroupStart(ParameterValueGroup& group) {
    auto const* parent = holderOf(group);
    if (parent && isBoundedContainer(group.getParameterGroup()) &&
        countOccurrences(*parent, group.getParameterGroup()) >= 2) {
        mErrors.addError("\"%s\" cannot be provided more than once", shownId(group));
    }
    return true;
}

unsigned long FirstPhaseValidationVisitor::countOccurrences(ParameterValueGroup const& parent,
                                                            ParameterItem const* container) {
    auto const [entry, isNew] = mCounts.try_emplace(&parent);
    if (isNew) {
        for (unsigned long i = 0; i < parent.getNumberOfItems(); ++i) {
            auto const& item = *parent.getItem(i);
            if (item.getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP) {
                ++entry->second[item.getParameterItem()];
            }
        }
    }
    return entry->second[container];
}

bool FirstPhaseValidationVisitor::visitParameterValue(ParameterValue& value) {
    auto const* parameter = value.getParameter();
    if (!parameter) {
        mErrors.addError("\"%s\" is not a recognized parameter", shownId(value));
    } else if (!parameter->isUnbounded() && value.getNumberOfValues() >= 2) {
        mErrors.addError("\"%s\" cannot be provided more than once", shownId(value));
    }
    return true;
}

} // namespace kivo::configuration
