#include "kernel/kvProcessInit.h"

#include "visitors/UnboundedParameterValueFixer.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterErrors.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

#include "schema/ContractChecks.h"
#include "schema/FaultCollection.h"
#include "schema/ItemKinds.h"
#include "schema/LocatedException.h"

namespace kivo::configuration {

namespace {

Specification const& checked(Specification const* spec) {
    KIVO_REQUIRE(spec != 0);
    return *spec;
}

} // namespace

UnboundedParameterValueFixer::UnboundedParameterValueFixer(Specification const* spec, Purpose purpose,
                                                           ParameterErrors* collected)
    : ParameterValueVisitor(false),
      mSpecificationGroup(checked(spec)),
      mFormerNames(mSpecificationGroup),
      mPurpose(purpose),
      mCollected(collected),
      mSchemaStack{&mSpecificationGroup} {}

bool UnboundedParameterValueFixer::visitGroupStart(ParameterValueGroup& group) {
    auto const* schemaParent = mSchemaStack.back();
    auto const* item = findItem(*schemaParent, group.getParameterItemId());
    if (item && item->getItemType() == ParameterItem::PARAMETER) {
        if (!mCollected) {
            addText(group);
            return false;
        }
        ParameterErrors faults;
        if (!runOrCollect(&faults, Rule::MISSING_VALUE, {}, [&] { addText(group); })) {
            addMissingText(group, faults.getError(0));
        }
        return false;
    }
    auto const* schemaGroup = asGroup(item);
    mSchemaStack.push_back(schemaGroup ? schemaGroup : schemaParent);
    if (mPurpose == COPY) {
        openCopy(group);
    }
    return true;
}

/// An element may be named by the former name of a parameter. Its value keeps the name, and matching replaces it.
ParameterItem const* UnboundedParameterValueFixer::findItem(ParameterGroup const& schemaGroup, char const* id) {
    auto const* item = schemaGroup.getItem(id, false);
    auto const* renamed = item ? nullptr : mFormerNames.find(id);
    return renamed ? asParameter(schemaGroup.getItem(renamed->getId(), false)) : item;
}

void UnboundedParameterValueFixer::addText(ParameterValueGroup const& element) {
    auto const* value = element.getValue("value");
    if (!value) {
        throw located(element.getStoredOrigin(),
                      ConfigurationException("\"%s\" is not a valid parameter", element.getParameterItemId()));
    }
    if (mPurpose == COPY) {
        mTargetStack.back()->addValueAt(element.getParameterItemId(), value->getValue(0, false),
                                        element.getStoredOrigin());
    }
    ++mChangeCount;
}

/// What is wrong is said of the element, which counts as given all the same.
void UnboundedParameterValueFixer::addMissingText(ParameterValueGroup const& element, char const* fault) {
    auto const& origin = element.getStoredOrigin();
    mCollected->addFault(Rule::MISSING_VALUE, origin, "%s", fault);
    mTargetStack.back()->addValueAt(element.getParameterItemId(), nullptr, origin);
    ++mChangeCount;
}

void UnboundedParameterValueFixer::openCopy(ParameterValueGroup const& group) {
    std::unique_ptr<ParameterValueGroup> copy(group.clone(ParameterValueItem::SHALLOW_COPY));
    auto* const target = copy.get();
    if (mTargetStack.empty()) {
        mResult = std::move(copy);
    } else {
        mTargetStack.back()->addItem(copy.release());
    }
    mTargetStack.push_back(target);
}

void UnboundedParameterValueFixer::visitGroupEnd(ParameterValueGroup&) {
    mSchemaStack.pop_back();
    if (mPurpose == COPY) {
        mTargetStack.pop_back();
    }
}

bool UnboundedParameterValueFixer::visitParameterValue(ParameterValue& value) {
    if (mPurpose == COPY) {
        mTargetStack.back()->addItem(value.clone(ParameterValueItem::DEEP_COPY));
    }
    return true;
}

ParameterValueGroup const* UnboundedParameterValueFixer::getResult() const { return mResult.get(); }

unsigned long UnboundedParameterValueFixer::getChangeCount() const { return mChangeCount; }

} // namespace kivo::configuration
