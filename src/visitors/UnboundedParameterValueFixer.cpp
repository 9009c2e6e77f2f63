#include "kernel/kvProcessInit.h"

#include "visitors/UnboundedParameterValueFixer.h"

#include <configuration/ConfigurationException.h>
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
      mPurpose(purpose),
      mCollected(collected),
      mSchemaStack{&mSpecificationGroup} {}

bool UnboundedParameterValueFixer::visitGroupStart(ParameterValueGroup& group) {
    auto const* schemaParent = mSchemaStack.back();
    auto const* item = schemaParent->getItem(group.getParameterItemId(), false);
    if (item && item->getItemType() == ParameterItem::PARAMETER) {
        auto const& origin = group.getStoredOrigin();
        if (!runOrCollect(mCollected, Rule::MISSING_VALUE, origin, [&] { addText(group); })) {
            mTargetStack.back()->addValueAt(group.getParameterItemId(), nullptr, origin); // it was given, all the same
            ++mChangeCount;
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
