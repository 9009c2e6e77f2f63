#include "kernel/kvProcessInit.h"

#include "text/UsageVisitor.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>

#include "text/ValuePlaceholder.h"

namespace kivo::configuration {

namespace {

char const* const LINE_INDENT = "    ";

/// Whether the group is neither a container nor an exclusive choice.
bool isGroupConstraint(ParameterGroup const& group) {
    return group.getGroupType() == ParameterGroup::CONSTRAINT && !group.itemsAreExclusive();
}

void openBrackets(std::ostream& text, ParameterItem const& item) {
    text << (item.isOptional() ? "[" : "") << (item.isUnbounded() ? "{" : "");
}

void closeBrackets(std::ostream& text, ParameterItem const& item) {
    text << (item.isUnbounded() ? "}" : "") << (item.isOptional() ? "]" : "");
}

} // namespace

bool UsageVisitor::visitGroupStart(ParameterGroup const& group) {
    if (mOpenGroups.empty()) {
        mText << LINE_INDENT;
    } else if (!isGroupConstraint(group)) {
        openBrackets(mText, group);
    } else if (mOpenGroups.back().mGroup->itemsAreExclusive()) {
        mText << '(';
    }
    mOpenGroups.push_back({&group});
    return true;
}

void UsageVisitor::visitGroupMiddle(ParameterGroup const& group) {
    if (mOpenGroups.size() > 1) {
        mText << (group.itemsAreExclusive() ? " | " : " ");
    } else if (!mLastParameterHidden) {
        mText << '\n' << LINE_INDENT;
    }
}

void UsageVisitor::visitGroupEnd(ParameterGroup const& group) {
    mOpenGroups.pop_back();
    if (mOpenGroups.empty()) {
        return;
    }
    if (!isGroupConstraint(group)) {
        closeBrackets(mText, group);
    } else if (mOpenGroups.back().mGroup->itemsAreExclusive()) {
        mText << ')';
    }
}

bool UsageVisitor::visitParameter(Parameter const& parameter) {
    mLastParameterHidden = parameter.isHidden();
    if (!mLastParameterHidden) {
        openBrackets(mText, parameter);
        mText << getParameterName(parameter) << valuePlaceholder(parameter);
        closeBrackets(mText, parameter);
    }
    return true;
}

std::string UsageVisitor::getParameterName(Parameter const& parameter) {
    return std::string("-") + parameter.getName();
}

std::string UsageVisitor::getParameterGroupName(ParameterGroup const& group) { return group.getName(); }

std::string UsageVisitor::getUsage() const { return mText.str(); }

} // namespace kivo::configuration
