#include "kernel/kvProcessInit.h"

#include "visitors/ParameterMatchingVisitor.h"

#include <configuration/ParameterErrors.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include "schema/FaultCollection.h"
#include "schema/ItemKinds.h"
#include "schema/NameComparison.h"
#include "values/GroupEditing.h"
#include "values/ItemTaker.h"
#include "visitors/FirstPhaseValidationVisitor.h"
#include "visitors/SettingNames.h"
#include "visitors/SettingRemarks.h"

#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace kivo::configuration {

namespace {

bool isNamed(char const* id) { return id && *id != '\0'; }

StoredOrigin const& originOf(ParameterValueItem const& item) {
    return item.getItemType() == ParameterValueItem::PARAMETER_VALUE
               ? static_cast<ParameterValue const&>(item).getStoredOrigin(0)
               : static_cast<ParameterValueGroup const&>(item).getStoredOrigin();
}

/// Which of the groups of one container in its holder a group is, counted from 1.
unsigned long countOccurrencesUpTo(ParameterValueGroup const& group) {
    unsigned long count = 1;
    auto const* const holder = group.getParentGroup();
    for (unsigned long i = 0; holder && i < holder->getNumberOfItems() && holder->getItem(i) != &group; ++i) {
        count += holder->getItem(i)->getParameterItem() == group.getParameterItem() ? 1U : 0U;
    }
    return count;
}

} // namespace

ParameterMatchingVisitor::ParameterMatchingVisitor(Specification const& specification, ParameterErrors& errors,
                                                   bool reportUnrecognized, ParameterErrors* collected)
    : ParameterValueVisitor(false),
      mErrors(errors),
      mRootGroup(specification.getParameterGroup()),
      mSchemaIndex(*mRootGroup),
      mFormerNames(*mRootGroup),
      mReportUnrecognized(reportUnrecognized),
      mCollected(collected) {}

bool ParameterMatchingVisitor::visitGroupStart(ParameterValueGroup& group) {
    char const* id = group.getParameterItemId();
    if (!isNamed(id)) {
        if (group.getParentGroup()) {
            mErrors.addFault(Rule::UNNAMED_ITEM, group.getStoredOrigin(), "An unnamed value group was found");
            return false;
        }
        mGroupStack.push_back(nullptr);
        return true;
    }
    auto const match = matchGroup(group, id);
    if (!match.isEntered) {
        return false;
    }
    if (match.item && !bindGroup(group, *match.item, id)) {
        return false;
    }
    mGroupStack.push_back(asGroup(match.item));
    return true;
}

ParameterMatchingVisitor::GroupMatch ParameterMatchingVisitor::matchGroup(ParameterValueGroup const& group,
                                                                          char const* id) {
    bool const isRoot = equalIgnoringCase(mRootGroup->getId(), id);
    if (mGroupStack.empty()) {
        return {true, isRoot ? mRootGroup : nullptr};
    }
    if (auto const* parent = mGroupStack.back()) {
        return {true, parent->getItem(id, false)};
    }
    if (!isRoot) {
        mErrors.addFault(Rule::UNKNOWN_SECTION, group.getStoredOrigin(),
                         "Unexpected unnamed group as parent of the \"%s\" group. (Expected: %s)", id,
                         mRootGroup->getId());
        return {false, nullptr};
    }
    return {true, mRootGroup};
}

bool ParameterMatchingVisitor::bindGroup(ParameterValueGroup& group, ParameterItem const& item, char const* id) {
    auto const* schemaGroup = asGroup(&item);
    if (!schemaGroup) {
        mErrors.addFault(Rule::WRONG_KIND, group.getStoredOrigin(), "\"%s\" is not a parameter group", id);
    } else if (schemaGroup->getGroupType() == ParameterGroup::CONSTRAINT) {
        mErrors.addFault(Rule::EXPLICIT_CONSTRAINT, group.getStoredOrigin(),
                         "\"%s\" is a constraint. It cannot be declared explicitly", id);
    }
    return setItem(group, &item) || group.getItemState() == ParameterValueItem::ASSIGNED;
}

void ParameterMatchingVisitor::visitGroupEnd(ParameterValueGroup&) {
    mGroupStack.pop_back();
    if (!mGroupStack.empty()) {
        return;
    }
    if (!mUnrecognized.empty()) {
        suggestNames();
    }
    if (!mRenamed.empty()) {
        mergeRenamed();
    }
}

bool ParameterMatchingVisitor::visitParameterValue(ParameterValue& value) {
    char const* id = value.getParameterItemId();
    if (!isNamed(id)) {
        mErrors.addFault(Rule::UNNAMED_ITEM, value.getStoredOrigin(0), "An unnamed value was found");
        return true;
    }
    auto const* group = mGroupStack.empty() ? nullptr : mGroupStack.back();
    if (!group) {
        mErrors.addFault(Rule::UNKNOWN_SECTION, value.getStoredOrigin(0),
                         "Unnamed group cannot contain Parameter \"%s\"", id);
        return true;
    }
    auto const* item = findItem(*group, value);
    if (!item) {
        if (mReportUnrecognized) {
            addUnrecognized(value, id);
        }
        return true;
    }
    if (item->getItemType() != ParameterItem::PARAMETER) {
        mErrors.addFault(Rule::WRONG_KIND, value.getStoredOrigin(0), "\"%s\" is not a parameter", id);
    }
    setItem(value, item);
    remarkOnUse(value);
    return true;
}

ParameterItem const* ParameterMatchingVisitor::findItem(ParameterGroup const& group, ParameterValue& value) {
    auto const* item = mSchemaIndex.findById(group, value.getParameterItemId());
    return item ? item : rename(group, value);
}

/// @return null for a value whose id is no former name of a parameter below a group
ParameterItem const* ParameterMatchingVisitor::rename(ParameterGroup const& group, ParameterValue& value) {
    auto const* renamed = mFormerNames.find(value.getParameterItemId());
    auto const* parameter = renamed ? asParameter(mSchemaIndex.findById(group, renamed->getId())) : nullptr;
    if (!parameter) {
        return nullptr;
    }
    for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
        RemarkListener::tell(makeFormerNameRemark(*parameter, value.getParameterItemId(), value.getStoredOrigin(i)));
    }
    setParameterItemId(value, parameter->getId());
    mRenamed.push_back(&value);
    return parameter;
}

void ParameterMatchingVisitor::remarkOnUse(ParameterValue const& value) {
    auto const* parameter = value.getParameter();
    if (parameter && parameter->getDeprecation()) {
        for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
            RemarkListener::tell(makeDeprecationRemark(*parameter, value.getStoredOrigin(i)));
        }
    }
}

/// Nobody walks over the groups any more.
void ParameterMatchingVisitor::mergeRenamed() {
    std::unordered_map<ParameterValueGroup*, std::unordered_set<ParameterItem const*>> parameters;
    for (auto const* value : std::exchange(mRenamed, {})) {
        if (auto const* item = value->getParameterItem()) {
            parameters[holderOf(*value)].insert(item);
        }
    }
    for (auto const& [group, renamed] : parameters) {
        std::unordered_set<ParameterValueItem const*> merged;
        for (unsigned long i = 0; i < group->getNumberOfItems(); ++i) {
            auto const* const item = group->getItem(i);
            if (renamed.contains(item->getParameterItem()) && giveTextsToFirst(*group, *item)) {
                merged.insert(item);
            }
        }
        ItemTaker::destroy(*group, merged);
    }
}

bool ParameterMatchingVisitor::setItem(ParameterValueItem& item, ParameterItem const* parameterItem) {
    if (item.getItemState() == ParameterValueItem::ASSIGNED) {
        return false;
    }
    return runOrCollect(mCollected, Rule::WRONG_KIND, originOf(item),
                        [&] { assignParameterItem(item, parameterItem); });
}

void ParameterMatchingVisitor::addUnrecognized(ParameterValue const& value, char const* id) {
    mErrors.addFault(Rule::UNKNOWN_SETTING, value.getStoredOrigin(0), "%s",
                     FirstPhaseValidationVisitor::composeUnknownSetting(id).c_str());
    if (!mCollected && mUnrecognized.size() < MAX_SUGGESTIONS) {
        mUnrecognized.push_back({mErrors.getNumberOfErrors() - 1, &value});
    }
}

/// At the end of the walk, when there are faults: a request without any pays nothing.
void ParameterMatchingVisitor::suggestNames() {
    SettingNames const names(*mRootGroup);
    for (auto const& [fault, value] : std::exchange(mUnrecognized, {})) {
        auto const section = findSection(holderOf(*value));
        auto const meant = names.suggestSetting(*section.group, section.prefix, value->getParameterItemId());
        mErrors.setSuggestion(fault, meant.c_str());
    }
}

/// The container that a value stands in. Where the tree does not say, that is the root.
ParameterMatchingVisitor::Section ParameterMatchingVisitor::findSection(ParameterValueGroup const* group) {
    auto const* schemaGroup = group ? group->getParameterGroup() : nullptr;
    if (!schemaGroup || schemaGroup == mRootGroup) {
        return {mRootGroup, composePrefix({}, composeRootName(*mRootGroup, 1))};
    }
    auto around = findSection(holderOf(*group));
    if (schemaGroup->getGroupType() != ParameterGroup::CONTAINER) {
        return around;
    }
    return {schemaGroup, composePrefix(around.prefix, composeSectionName(*schemaGroup, countOccurrencesUpTo(*group)))};
}

} // namespace kivo::configuration
