#include "kernel/kvProcessInit.h"

#include "visitors/FirstPhaseValidationVisitor.h"

#include <configuration/ParameterErrors.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

#include "schema/Rule.h"
#include "schema/StoredOrigin.h"

#include <utility>

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

/// Where the second of a value's texts was given, in the order of the source: texts of abbreviated flags are grouped by
/// abbreviation, and attributes sorted.
StoredOrigin findSurplus(ParameterValue const& value) {
    unsigned long first = 0;
    unsigned long second = 1;
    for (unsigned long i = 1; i < value.getNumberOfValues(); ++i) {
        auto const& origin = value.getStoredOrigin(i);
        if (origin.isBeforeInSource(value.getStoredOrigin(first))) {
            second = std::exchange(first, i);
        } else if (origin.isBeforeInSource(value.getStoredOrigin(second))) {
            second = i;
        }
    }
    return value.getStoredOrigin(second);
}

} // namespace

FirstPhaseValidationVisitor::FirstPhaseValidationVisitor(ParameterErrors& errors)
    : ParameterValueVisitor(false), mErrors(errors) {}

bool FirstPhaseValidationVisitor::visitGroupStart(ParameterValueGroup& group) {
    auto const* parent = holderOf(group);
    if (!parent || !isBoundedContainer(group.getParameterGroup())) {
        return true;
    }
    if (auto const& [first, second] = occurrencesOf(*parent, group.getParameterGroup()); second) {
        auto const& surplus = &group == first ? *second : group;
        mErrors.addFault(Rule::REPEATED_SETTING, surplus.getStoredOrigin(), "\"%s\" cannot be provided more than once",
                         shownId(group));
    }
    return true;
}

FirstPhaseValidationVisitor::Occurrences const&
FirstPhaseValidationVisitor::occurrencesOf(ParameterValueGroup const& parent, ParameterItem const* container) {
    auto const [entry, isNew] = mOccurrences.try_emplace(&parent);
    if (isNew) {
        for (unsigned long i = 0; i < parent.getNumberOfItems(); ++i) {
            auto const& item = *parent.getItem(i);
            if (item.getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP) {
                auto& [first, second] = entry->second[item.getParameterItem()];
                auto const*& occurrence = first ? second : first;
                occurrence = occurrence ? occurrence : static_cast<ParameterValueGroup const*>(&item);
            }
        }
    }
    return entry->second[container];
}

bool FirstPhaseValidationVisitor::visitParameterValue(ParameterValue& value) {
    auto const* parameter = value.getParameter();
    if (!parameter) {
        mErrors.addFault(Rule::UNKNOWN_SETTING, value.getStoredOrigin(0), "%s",
                         composeUnknownSetting(shownId(value)).c_str());
    } else if (!parameter->isUnbounded() && value.getNumberOfValues() >= 2) {
        mErrors.addFault(Rule::REPEATED_SETTING, findSurplus(value), "\"%s\" cannot be provided more than once",
                         shownId(value));
    }
    return true;
}

std::string FirstPhaseValidationVisitor::composeUnknownSetting(std::string const& id) {
    return '"' + id + "\" is not a recognized parameter";
}

} // namespace kivo::configuration
