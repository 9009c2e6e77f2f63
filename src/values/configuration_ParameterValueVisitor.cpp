#include "kernel/kvProcessInit.h"

#include <configuration/ParameterValueVisitor.h>

#include "schema/ContractChecks.h"

namespace kivo::configuration {

ParameterValueVisitor::ParameterValueVisitor(bool isMutator) : mMutator(isMutator) {}

ParameterValueVisitor::~ParameterValueVisitor() = default;

bool ParameterValueVisitor::visitGroupStart(ParameterValueGroup&) { return true; }

void ParameterValueVisitor::visitGroupEnd(ParameterValueGroup&) {}

bool ParameterValueVisitor::visitParameterValue(ParameterValue&) { return true; }

bool ParameterValueVisitor::isMutator() const { return mMutator; }

void ParameterValueVisitor::setParameterItemId(ParameterValueItem& item, char const* parameterItemId) {
    item.setParameterItemId(parameterItemId);
}

void ParameterValueVisitor::setItemState(ParameterValueItem& item, ParameterValueItem::ItemState state) {
    item.setItemState(state);
}

void ParameterValueVisitor::assignParameterItem(ParameterValueItem& item, ParameterItem const* parameterItem) {
    KIVO_REQUIRE(parameterItem != 0);
    item.assignParameterItem(parameterItem);
}

ParameterValueGroup* ParameterValueVisitor::holderOf(ParameterValueItem const& item) { return item.getHolder(); }

} // namespace kivo::configuration
