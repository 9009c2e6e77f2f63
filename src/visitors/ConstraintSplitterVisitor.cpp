#include "kernel/kvProcessInit.h"

#include "visitors/ConstraintSplitterVisitor.h"

#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

#include "values/ChildSearch.h"
#include "values/GroupEditing.h"
#include "visitors/ConstraintFinderVisitor.h"

#include <algorithm>
#include <memory>
#include <ranges>

namespace kivo::configuration {

namespace {

/// The constraints between a schema group and one of its parameters, outermost first; empty when the parameter is a
/// direct item, stands behind a container, or is not there.
std::vector<ParameterGroup const*> constraintsAbove(Parameter const& parameter, ParameterGroup const& schemaGroup) {
    if (schemaGroup.getItem(parameter.getName(), false)) {
        return {};
    }
    auto path = findGroupPath(schemaGroup, parameter.getName());
    if (!path.empty()) {
        path.erase(path.begin());
    }
    bool const behindContainer =
        std::ranges::any_of(path, [](auto const* group) { return group->getGroupType() == ParameterGroup::CONTAINER; });
    return behindContainer ? std::vector<ParameterGroup const*>{} : path;
}

} // namespace

ConstraintSplitterVisitor::ConstraintSplitterVisitor(ParameterErrors& errors)
    : ParameterValueVisitor(true), mErrors(errors) {}

bool ConstraintSplitterVisitor::visitGroupStart(ParameterValueGroup&) {
    mMoved.emplace_back();
    return true;
}

void ConstraintSplitterVisitor::visitGroupEnd(ParameterValueGroup& group) {
    if (!mMoved.back().empty()) {
        destroyItems(group, mMoved.back());
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
        current = &findOrAddGroup(*current, *constraint);
    }
    current->addItem(value.clone(ParameterValueItem::DEEP_COPY));
    return true;
}

/// The child group of a constraint's name, which is made when it is not there.
ParameterValueGroup& ConstraintSplitterVisitor::findOrAddGroup(ParameterValueGroup& current,
                                                               ParameterGroup const& constraint) {
    if (auto* group = findChildGroup(current, constraint.getName())) {
        return *group;
    }
    auto added = std::make_unique<ParameterValueGroup>(constraint.getName());
    assignParameterItem(*added, &constraint);
    auto& group = *added;
    current.addItem(added.release());
    return group;
}

} // namespace kivo::configuration
