#include "kernel/kvProcessInit.h"

#include <configuration/ParameterValueItem.h>
#include <configuration/ParameterVisitor.h>

namespace kivo::configuration {

ParameterVisitor::ParameterVisitor() = default;

ParameterVisitor::~ParameterVisitor() = default;

bool ParameterVisitor::visitGroupStart(ParameterGroup const&) { return true; }

void ParameterVisitor::visitGroupMiddle(ParameterGroup const&) {}

void ParameterVisitor::visitGroupEnd(ParameterGroup const&) {}

bool ParameterVisitor::visitParameter(Parameter const&) { return true; }

void ParameterVisitor::assignParameterItem(ParameterValueItem& item, ParameterItem const* parameterItem) {
    item.assignParameterItem(parameterItem);
}

} // namespace kivo::configuration
