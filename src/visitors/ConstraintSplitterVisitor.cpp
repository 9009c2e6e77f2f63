#include "kernel/kvProcessInit.h"

#include "visitors/ConstraintSplitterVisitor.h"

#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

#include "values/GroupEditing.h"
#include "values/ItemTaker.h"

#include <algorithm>
#include <memory>

namespace kivo::configuration {

ConstraintSplitterVisitor::ConstraintSplitterVisitor(ParameterErrors& errors)
    : ParameterValueVisitor(true), mErrors(errors) {}

bool ConstraintSplitterVisitor::visitGroupStart(ParameterValueGroup& group) {
    if (auto const* schemaGroup = group.getParameterGroup(); schemaGroup && !mSchemaIndex) {
        mSchemaIndex.emplace(*schemaGroup);
    }
    mMoved.emplace_back();
    return true;
}

void ConstraintSplitterVisitor::visitGroupEnd(ParameterValueGroup& group) {
    if (!mMoved.back().empty()) {
        ItemTaker::destroy(group, mMoved.back());
    }
    mMoved.pop_back();
}

bool ConstraintSplitterVisitor::visitParameterValue(ParameterValue& value) {
    auto const* parameter = value.getParameter();
    auto* container = holderOf(value);
    if (!parameter || !container || !container->getParameterGroup() || mMoved.empty()) {
        return true;
    }
    auto const constraints = constraintsAbove(*parameter, *container->getParameterGroup());
    if (constraints.empty()) {
        return true;
    }
    mMoved.back().insert(&value);
    auto* current = container;
    for (auto const* constraint : constraints) {
        current = &findOrAddGroup(*current, constraint->getName(), *constraint);
    }
    current->addItem(value.clone(ParameterValueItem::DEEP_COPY));
    return true;
}

/// The constraints between a schema group and one of its parameters, outermost first; empty when the parameter is a
/// direct item, lies in a container below the group, or is not there.
std::vector<ParameterGroup const*> ConstraintSplitterVisitor::constraintsAbove(Parameter const& parameter,
                                                                               ParameterGroup const& schemaGroup) {
    if (SchemaIndex::isFlat(schemaGroup) || schemaGroup.getItem(parameter.getName(), false)) {
        return {};
    }
    auto path = mSchemaIndex->findPathTo(schemaGroup, parameter.getName());
    if (!path.empty()) {
        path.erase(path.begin());
    }
    bool const isInContainer =
        std::ranges::any_of(path, [](auto const* group) { return group->getGroupType() == ParameterGroup::CONTAINER; });
    return isInContainer ? std::vector<ParameterGroup const*>{} : path;
}

} // namespace kivo::configuration
