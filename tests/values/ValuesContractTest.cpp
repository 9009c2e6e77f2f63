#include <configuration/ContractViolationException.h>
#include <configuration/ValueGroup.h>

#include "support/Exceptions.h"
#include "support/Schema.h"
#include "support/ValueTree.h"
#include "values/ValueItemUtil.h"

#include <gtest/gtest.h>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

/// Reaches what only groups do to their children.
struct Adoptable : ParameterValue {
    using ParameterValue::ParameterValue;
    using ParameterValueItem::setParentGroup;
};

/// A tree that a refused call must leave as it is, and handles on it.
struct Subjects {
    std::unique_ptr<ParameterValueGroup> group = valueGroup("root", value("a", "1"), value("list", "1", "2"));
    ParameterValue& leaf = *group->getValue("a");
    ValueGroup handle{group.get()};
    ValueItemUtil util;
    Items items;
};

TEST(ValuesContract, ThrowsWithTheConditionAndChangesNothing) {
    constexpr char const* index = "index < mValues.size()";
    constexpr char const* bound = "mParameterItem != 0";
    constexpr char const* item = "parameterItem != 0";
    constexpr char const* itemId = "parameterItemId != 0";
    constexpr char const* filledId = "parameterItemId != 0 && *parameterItemId != '\\0'";
    constexpr char const* name = "name != 0 && strlen(name) > 0";
    constexpr char const* handle = "mValue->getParameterItem() != 0";
    constexpr char const* none = nullptr;
    using S = Subjects&;
    struct Row {
        char const* label;
        char const* condition;
        void (*call)(Subjects&);
    };
    for (auto const& row : {
             Row{"get text", index, [](S s) { s.leaf.getValue(1, true); }},
             Row{"get boolean", index, [](S s) { s.leaf.getBooleanValue(1); }},
             Row{"get integer", index, [](S s) { s.leaf.getIntValue(1); }},
             Row{"get unsigned", index, [](S s) { s.leaf.getUIntValue(1); }},
             Row{"get double", index, [](S s) { s.leaf.getDoubleValue(1); }},
             Row{"set text", index, [](S s) { s.leaf.setValue(1, "x"); }},
             Row{"type of an unbound value", "mParameter != 0", [](S s) { s.leaf.getValueType(); }},
             Row{"bind a value to null", item, [](S s) { s.util.assignParameterItem(s.leaf, nullptr); }},
             Row{"bind a group to null", item, [](S s) { s.util.assignParameterItem(*s.group, nullptr); }},
             Row{"rename to null", filledId, [](S s) { s.util.setParameterItemId(s.leaf, nullptr); }},
             Row{"rename to empty", filledId, [](S s) { s.util.setParameterItemId(*s.group, ""); }},
             Row{"null parent", "parentGroup != 0", [](S) { Adoptable("a", "1").setParentGroup(nullptr); }},
             Row{"null parameter", bound, [](S) { value(static_cast<Parameter*>(nullptr), "1"); }},
             Row{"null group", bound, [](S) { valueGroup(static_cast<ParameterGroup*>(nullptr)); }},
             Row{"add null", "item != 0", [](S s) { s.group->addItem(nullptr); }},
             Row{"add to null", filledId, [](S s) { s.group->addValue(nullptr, "1"); }},
             Row{"add to empty", filledId, [](S s) { s.group->addValue("", "1"); }},
             Row{"item index", "index < getNumberOfItems()", [](S s) { s.group->getItem(2); }},
             Row{"find null id", itemId, [](S s) { s.group->getItem(none); }},
             Row{"find null item", item, [](S s) { s.group->getItem(static_cast<ParameterItem*>(nullptr)); }},
             Row{"null name", name, [](S s) { s.group->getValue(none); }},
             Row{"empty name", name, [](S s) { s.group->getValue(""); }},
             Row{"null's value", "parameter != 0", [](S s) { s.group->getValue(static_cast<Parameter*>(nullptr)); }},
             Row{"remove at end", "index < mItems.size()", [](S s) { s.group->removeItem(2ul); }},
             Row{"remove null id", itemId, [](S s) { s.group->removeItem(none); }},
             Row{"handle on an unbound value", handle, [](S s) { s.handle.getValue("a"); }},
             Row{"handle on several unbound texts", handle, [](S s) { s.handle.getValue("list"); }},
             Row{"handle on several texts", "mValue->getNumberOfValues() == 1",
                 [](S s) { Value(value(s.items.parameter({}), "1", "2").get(), false); }},
             Row{"read an unbound value", "mParameter != 0", [](S s) { s.handle.getValueIterator("a").asString(); }},
             Row{"value of null", name, [](S s) { s.handle.getValue(nullptr); }},
             Row{"iterator of empty", name, [](S s) { s.handle.getValueIterator(""); }},
             Row{"group of null", itemId, [](S s) { s.handle.getValueGroup(nullptr); }},
             Row{"group handle on a value",
                 "!mValueGroup || mValueGroup->getItemType() == ParameterValueGroup::PARAMETER_VALUE_GROUP",
                 [](S s) { s.handle.getValueGroup("a"); }},
         }) {
        SCOPED_TRACE(row.label);
        Subjects subjects;
        EXPECT_EQ(whatOf<kivo::ContractViolationException>([&] { row.call(subjects); }), contractText(row.condition));
        EXPECT_EQ(toText(*subjects.group), "root?{a?=1 list?=1,2}");
    }
}

} // namespace
