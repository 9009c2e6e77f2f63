#include "kernel/kvProcessInit.h"

#include "visitors/SecondPhaseValidationVisitor.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterErrors.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

#include "schema/FaultCollection.h"
#include "schema/LocatedException.h"
#include "schema/NameComparison.h"
#include "values/ChildSearch.h"
#include "values/ValueChecks.h"

#include <algorithm>

namespace kivo::configuration {

namespace {

/// Names every item of a constraint, given or not: the user may choose any one of them.
std::string composeExclusiveMessage(ParameterGroup const& constraint) {
    std::string message = "The ";
    for (unsigned long i = 0; i < constraint.getNumberOfItems(); ++i) {
        message += i > 0 ? " and \"" : "\"";
        message += constraint.getItem(i)->getName();
        message += '"';
    }
    return message + " flags are mutually exclusive, you cannot specify both.";
}

/// Where an item was first given.
StoredOrigin originOf(ParameterValueItem const& item) {
    if (item.getItemType() == ParameterValueItem::PARAMETER_VALUE) {
        return static_cast<ParameterValue const&>(item).getStoredOrigin(0);
    }
    auto const& group = static_cast<ParameterValueGroup const&>(item);
    bool const isMade = !group.getStoredOrigin().isKnown() && group.getNumberOfItems() > 0; // for a constraint
    return isMade ? originOf(*group.getItem(0UL)) : group.getStoredOrigin();
}

/// Where the latest of several alternatives was given: that of the source that was asked last, and there the last one.
StoredOrigin latestOf(ParameterValueGroup const& alternatives) {
    auto latest = originOf(*alternatives.getItem(0UL));
    for (unsigned long i = 1; i < alternatives.getNumberOfItems(); ++i) {
        auto origin = originOf(*alternatives.getItem(i)); // sources that were asked later stand later
        if (!origin.isBeforeInSource(latest)) {
            latest = std::move(origin);
        }
    }
    return latest;
}

} // namespace

SecondPhaseValidationVisitor::SecondPhaseValidationVisitor(ParameterValueGroup const& valueGroup,
                                                           ParameterErrors& errors)
    : mValueGroup(valueGroup), mErrors(errors) {}

SecondPhaseValidationVisitor::SecondPhaseValidationVisitor(ParameterValueGroup const& valueGroup,
                                                           ParameterErrors& errors, bool isInRequiredGroup)
    : mValueGroup(valueGroup), mErrors(errors), mCollected(&errors), mIsInRequiredGroup(isInRequiredGroup) {}

bool SecondPhaseValidationVisitor::visitGroupStart(ParameterGroup const& schemaGroup) {
    mNesting.push_back({&schemaGroup, findValueGroup(schemaGroup)});
    return true;
}

ParameterValueGroup const* SecondPhaseValidationVisitor::findValueGroup(ParameterGroup const& schemaGroup) const {
    if (mNesting.empty()) {
        char const* id = mValueGroup.getParameterItemId();
        if (!id || !equalIgnoringCase(id, schemaGroup.getId())) {
            throw located(mValueGroup.getStoredOrigin(),
                          ConfigurationException("\"%s\" specification was not found", schemaGroup.getId()));
        }
        return &mValueGroup;
    }
    auto const* parent = mNesting.back().valueGroup;
    return parent ? findChildGroup(*parent, schemaGroup.getId()) : nullptr;
}

bool SecondPhaseValidationVisitor::visitParameter(Parameter const& parameter) {
    auto const* valueGroup = mNesting.empty() ? nullptr : mNesting.back().valueGroup;
    ParameterValue const* value = nullptr;
    if (valueGroup && !runOrCollect(mCollected, Rule::WRONG_KIND, valueGroup->getStoredOrigin(),
                                    [&] { value = valueGroup->getValue(&parameter); })) {
        return true;
    }
    if (value) {
        check(*value, parameter);
        return true;
    }
    bool const isGroupGiven = valueGroup && valueGroup->getNumberOfItems() > 0;
    if (!parameter.isOptional() && (isGroupGiven || isGroupRequiredInCurrentNesting())) {
        mMissingParameters.emplace_back(parameter.getName());
    }
    return true;
}

void SecondPhaseValidationVisitor::check(ParameterValue const& value, Parameter const& parameter) {
    if (!value.isUsingDefaultValue()) {
        runOrCollect(mCollected, Rule::REJECTED_VALUE, value.getStoredOrigin(0), [&] {
            checkValue(&value, parameter.getValueType(), mErrors, parameter.getValidator(), mCollected != nullptr);
        });
    }
}

bool SecondPhaseValidationVisitor::isGroupRequiredInCurrentNesting() const {
    return mIsInRequiredGroup ||
           std::ranges::any_of(mNesting, [](Nesting const& nesting) { return !nesting.schemaGroup->isOptional(); });
}

void SecondPhaseValidationVisitor::visitGroupEnd(ParameterGroup const& schemaGroup) {
    auto const* valueGroup = mNesting.back().valueGroup;
    mNesting.pop_back();
    if (mNesting.empty()) {
        reportMissingParameters();
    }
    if (!valueGroup) {
        if (!schemaGroup.isOptional() && schemaGroup.getGroupType() == ParameterGroup::CONTAINER) {
            mErrors.addFault(Rule::MISSING_SECTION, StoredOrigin(), "%s", composeMissingSection(schemaGroup).c_str());
        }
    } else if (schemaGroup.itemsAreExclusive() && valueGroup->getNumberOfItems() > 1) {
        mErrors.addFault(Rule::EXCLUSIVE_SETTINGS, latestOf(*valueGroup), "%s",
                         composeExclusiveMessage(schemaGroup).c_str());
    }
}

std::string SecondPhaseValidationVisitor::composeMissingSection(ParameterGroup const& section) {
    return std::string("Required group \"") + section.getName() + "\" was not found";
}

void SecondPhaseValidationVisitor::reportMissingParameters() {
    if (mMissingParameters.empty()) {
        return;
    }
    std::string message =
        "A required flag was not specified. You must provide one of the following flags: " + mMissingParameters[0];
    for (std::size_t i = 1; i < mMissingParameters.size(); ++i) {
        message += ", " + mMissingParameters[i];
    }
    mErrors.addFault(Rule::MISSING_SETTING, StoredOrigin(), "%s", message.c_str());
}

std::string SecondPhaseValidationVisitor::generateInvalidValueMessage(char const* parameterName, char const* valueText,
                                                                      char const* typeName) {
    return composeInvalidValueMessage(parameterName, valueText, typeName);
}

void SecondPhaseValidationVisitor::validate(char const* parameterName, char const* valueText,
                                            Parameter::ValueType valueType, ParameterErrors& errors) {
    checkText(parameterName, valueText, StoredOrigin(), valueType, errors);
}

void SecondPhaseValidationVisitor::validate(ParameterValue const* value, Parameter::ValueType valueType,
                                            ParameterErrors& errors, ParameterValidator const* validator) {
    checkValue(value, valueType, errors, validator);
}

} // namespace kivo::configuration
