#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterEnumValue.h>
#include <configuration/Value.h>
#include <configuration/ValueIterator.h>

#include "support/Exceptions.h"
#include "support/Notation.h"
#include "values/ValueItemUtil.h"

#include <gtest/gtest.h>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

/// An item of a caller's own class, which is neither a Parameter nor a ParameterGroup.
class OwnItem final : public ParameterItem {
public:
    explicit OwnItem(ItemType type) : ParameterItem("own", "own", "Description", true, false), mType(type) {}
    ItemType getItemType() const override { return mType; }
    bool accept(ParameterVisitor&) const override { return true; }

private:
    ItemType mType;
};

/// A parameter whose type is not the one that its base was made with.
class OwnParameter final : public Parameter {
public:
    OwnParameter(ValueType base, ValueType own, char const* text)
        : Parameter("own", "own", "Description", true, false, base, text, nullptr, nullptr, false), mType(own) {}
    ValueType getValueType() const override { return mType; }

    ValueType mType;
};

TEST(OwnItems, AreBoundByTheirTypeOnly) {
    OwnItem const item(ParameterItem::PARAMETER);
    OwnItem const groupItem(ParameterItem::PARAMETER_GROUP);
    auto const tree = treeOf("id{id=7,<none>}");
    auto* const bound = tree->getValue("id");
    auto* const group = tree.get();
    ValueItemUtil util;
    EXPECT_EQ(whatOf([&] { util.assignParameterItem(*bound, &groupItem); }), "\"own\" must be a parameter");
    EXPECT_EQ(whatOf([&] { util.assignParameterItem(*group, &item); }), "\"own\" must be a parameter group");
    util.assignParameterItem(*bound, &item);
    util.assignParameterItem(*group, &groupItem);
    OwnParameter const parameter(Parameter::INT_PARAMETER, Parameter::INT_PARAMETER, "1");
    ParameterValue assigned(&parameter, "8");
    assigned = *bound;
    for (ParameterValue const& each : {*bound, ParameterValue(*bound), assigned}) {
        EXPECT_EQ(each.getParameterItem(), &item);
        EXPECT_EQ(each.getParameter(), nullptr);
        EXPECT_EQ(whatOf([&] { each.getValueType(); }), contractText("mParameter != 0"));
        EXPECT_EQ(whatOf([&] { Value(&each, true).asInteger(); }), contractText("mParameter != 0"));
        EXPECT_EQ(each.getIntValue(0) + each.getIntValue(1), 7);
    }
    EXPECT_EQ(group->getParameterItem(), &groupItem);
    EXPECT_EQ(group->getParameterGroup(), nullptr);
}

TEST(OwnParameter, IsReadByItsOwnType) {
    OwnParameter parameter(Parameter::STRING_PARAMETER, Parameter::UINT_PARAMETER, "5");
    EXPECT_EQ(Value(parameter.getDefaultValue(), false).asUnsignedInteger(), 5u);
    auto const given = std::make_unique<ParameterValue>(&parameter, nullptr);
    EXPECT_EQ(Value(given.get(), false).asUnsignedInteger(), 5u);
    parameter.mType = Parameter::BOOLEAN_PARAMETER;
    EXPECT_TRUE(Value(given.get(), false).asBoolean());
    EXPECT_EQ(textsOf(*given), "1");
}

/// A value of a caller's own class, which replaces one of the readers.
template <class Base>
class OwnValue final : public Base {
public:
    using Base::Base;
    int getIntValue(unsigned long) const override { return 99; }
};

TEST(OwnValue, ReplacesOneReaderWithoutTheOthers) {
    OwnValue<ParameterValue> const own("id", "4");
    ParameterEnumDefinition labels("labels");
    labels.addEnumValue("four", 4);
    OwnValue<ParameterEnumValue> label("id", "four");
    label.setEnumDefinition(labels);
    for (ParameterValue const* each : std::vector<ParameterValue const*>{&own, &label}) {
        EXPECT_EQ(each->getIntValue(0), 99);
        EXPECT_EQ(each->getUIntValue(0), 4u);
        EXPECT_EQ(each->getDoubleValue(0), 4.0);
        EXPECT_TRUE(each->getBooleanValue(0));
    }
}

/// What tells one state of an object from another.
std::string stateOf(ParameterValue const& value) {
    auto const* parameter = value.getParameter();
    return toText(value) + (parameter ? " " + std::to_string(value.getValueType()) : "") +
           (value.getBooleanValue(0) ? " true" : " false");
}

TEST(Copies, HoldAllOfTheirSource) {
    Items items;
    ParameterEnumDefinition none("none");
    none.addEnumValue("text", 0);
    ParameterEnumDefinition some("some");
    some.addEnumValue("text", -1);
    auto const tree = treeOf("{flag=text number=0,2}", *items.group("g{flag:bool number:int}"));
    auto* const flag = tree->getValue("flag");
    auto* const number = tree->getValue("number");
    number->setIsUsingDefaultValue(true);
    ParameterValue const unbound("unbound", "text");
    std::vector<ParameterValue const*> const values{flag, number, &unbound};
    for (auto const* source : values) {
        for (auto const* before : values) {
            ParameterValue target(*before);
            EXPECT_EQ(stateOf(target), stateOf(*before));
            target = *source;
            EXPECT_EQ(stateOf(target), stateOf(*source));
        }
    }
    ParameterEnumValue first("first", "text");
    first.setEnumDefinition(none);
    ParameterEnumValue second("second", "text");
    second.setEnumDefinition(some);
    EXPECT_EQ(stateOf(first) + ", " + stateOf(second), "first?=text false, second?=text true");
    first = second;
    EXPECT_EQ(stateOf(first), "second?=text true");

    ValueIterator iterator(number);
    EXPECT_TRUE(iterator.next());
    ValueIterator same(nullptr);
    EXPECT_EQ(same.getNumberOfValues(), 0ul);
    EXPECT_TRUE((same = iterator).next());
    EXPECT_EQ(same.getCurrentValueIndex() * 10 + same.getNumberOfValues(), 2ul);
    EXPECT_TRUE(same.next());
    iterator = same;
    EXPECT_TRUE(iterator.next());
    EXPECT_EQ(iterator.getCurrentValueIndex(), 0ul);
}

} // namespace
