#include "kernel/kvProcessInit.h"

#include "visitors/DefaultValueProviderVisitor.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

#include "values/GroupEditing.h"

#include <algorithm>

namespace kivo::configuration {

DefaultValueProviderVisitor::DefaultValueProviderVisitor(ParameterValueGroup& valueGroup, ParameterErrors& errors)
    : mValueGroup(valueGroup), mErrors(errors) {}

bool DefaultValueProviderVisitor::visitGroupStart(ParameterGroup const& schemaGroup) {
    mValueStack.push_back(mValueStack.empty() ? &mValueGroup
                                              : &findOrAddGroup(*mValueStack.back(), schemaGroup.getId(), schemaGroup));
    return true;
}

void DefaultValueProviderVisitor::visitGroupEnd(ParameterGroup const&) { mValueStack.pop_back(); }

bool DefaultValueProviderVisitor::visitParameter(Parameter const& parameter) {
    auto const* defaultValue = parameter.getDefaultValue();
    if (!defaultValue || mValueStack.empty() || mValueStack.back()->getItem(&parameter) ||
        isConstraintFullfilledInCurrentNesting()) {
        return true;
    }
    mValueStack.back()->addItem(defaultValue->clone(ParameterValueItem::DEEP_COPY));
    return true;
}

bool DefaultValueProviderVisitor::isConstraintFullfilledInCurrentNesting() const {
    return std::ranges::any_of(mValueStack, [](ParameterValueGroup const* valueGroup) {
        auto const* schemaGroup = valueGroup->getParameterGroup();
        return schemaGroup && schemaGroup->itemsAreExclusive() &&
               (schemaGroup->isOptional() || valueGroup->getNumberOfItems() > 0);
    });
}

} // namespace kivo::configuration
