#include <configuration/ConfigurationException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ValueGroupIterator.h>

#include "support/CommaLocale.h"
#include "support/Exceptions.h"
#include "support/Schema.h"
#include "support/ValueTree.h"
#include "support/VirtualSlot.h"

#include <climits>
#include <gmock/gmock.h>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

std::string const BEFORE = "Must call next() before dereferencing an iterator";
std::string const BEHIND = "Dereferencing iterator after next() returns false";

TEST(Value, EachAccessorHasItsTypes) {
    char const* const typeNames[] = {"BOOLEAN_PARAMETER", "STRING_PARAMETER", "INT_PARAMETER", "UINT_PARAMETER",
                                     "DOUBLE_PARAMETER",  "OID_PARAMETER",    "ENUM_PARAMETER"};
    std::string const typeIs = "mValue->getValueType() == Parameter::";
    struct Accessor {
        std::string condition;
        void (*read)(Value const&);
        void (*write)(Value&);
    };
    for (auto const& accessor : {
             Accessor{typeIs + "BOOLEAN_PARAMETER", [](auto& v) { EXPECT_TRUE(v.asBoolean()); },
                      [](auto& v) { v.setBoolean(true); }},
             Accessor{typeIs + "STRING_PARAMETER", [](auto& v) { EXPECT_STREQ(v.asString(), "7"); },
                      [](auto& v) { v.setString("7"); }},
             Accessor{typeIs + "INT_PARAMETER || " + typeIs + "ENUM_PARAMETER",
                      [](auto& v) { EXPECT_EQ(v.asInteger(), 7); }, [](auto& v) { v.setInteger(7); }},
             Accessor{typeIs + "UINT_PARAMETER", [](auto& v) { EXPECT_EQ(v.asUnsignedInteger(), 7u); },
                      [](auto& v) { v.setUnsignedInteger(7); }},
             Accessor{typeIs + "DOUBLE_PARAMETER", [](auto& v) { EXPECT_EQ(v.asDouble(), 7.0); },
                      [](auto& v) { v.setDouble(7); }},
         }) {
        Items items;
        for (int type = Parameter::BOOLEAN_PARAMETER; type <= Parameter::ENUM_PARAMETER; ++type) {
            SCOPED_TRACE(accessor.condition + " on " + typeNames[type]);
            auto const tree = value(items.parameter({.type = Parameter::ValueType(type)}), "7");
            Value handle(tree.get(), false);
            bool const fits = accessor.condition.find(std::string("::") + typeNames[type]) != std::string::npos;
            auto const text = fits ? "<nothing>" : contractText(accessor.condition);
            EXPECT_EQ(whatOf([&] { accessor.read(handle); }), text);
            EXPECT_EQ(whatOf([&] { accessor.write(handle); }), text);
            EXPECT_EQ(textsOf(*tree), fits && type == Parameter::BOOLEAN_PARAMETER ? "1" : "7");
            EXPECT_EQ(whatOf([&] { accessor.read(ValueIterator(tree.get())); }), fits ? BEFORE : text);
        }
        Value null(nullptr, false);
        EXPECT_EQ(whatOf<ConfigurationException>([&] { accessor.read(null); }), "Value is null");
        EXPECT_EQ(whatOf<ConfigurationException>([&] { accessor.write(null); }), "Value is null");
        EXPECT_EQ(whatOf<ConfigurationException>([&] { accessor.read(ValueIterator(nullptr)); }), "Value is null");
    }
}

TEST(Value, WritesTextsThatEveryLocaleReads) {
    struct Row {
        Parameter::ValueType type;
        char const* text;
        Value* (*write)(Value&);
    };
    CommaLocale const locale;
    ASSERT_TRUE(locale.isActive());
    Items items;
    for (auto const& row : {
             Row{Parameter::BOOLEAN_PARAMETER, "0", [](Value& v) { return &v.setBoolean(false); }},
             Row{Parameter::BOOLEAN_PARAMETER, "1", [](Value& v) { return &v.setBoolean(true); }},
             Row{Parameter::STRING_PARAMETER, "100%s", [](Value& v) { return &v.setString("100%s"); }},
             Row{Parameter::STRING_PARAMETER, "<none>", [](Value& v) { return &v.setString(nullptr); }},
             Row{Parameter::INT_PARAMETER, "-2147483648", [](Value& v) { return &v.setInteger(INT_MIN); }},
             Row{Parameter::ENUM_PARAMETER, "-5", [](Value& v) { return &v.setInteger(-5); }},
             Row{Parameter::UINT_PARAMETER, "4294967295", [](Value& v) { return &v.setUnsignedInteger(UINT_MAX); }},
             Row{Parameter::DOUBLE_PARAMETER, "0.1", [](Value& v) { return &v.setDouble(0.1); }},
             Row{Parameter::DOUBLE_PARAMETER, "1e+06", [](Value& v) { return &v.setDouble(1e6); }},
             Row{Parameter::DOUBLE_PARAMETER, "-123457", [](Value& v) { return &v.setDouble(-123456.7); }},
             Row{Parameter::DOUBLE_PARAMETER, "-1.23457e-300", [](Value& v) { return &v.setDouble(-1.234567e-300); }},
         }) {
        auto const tree = value(items.parameter({.type = row.type}), "old");
        Value handle(tree.get(), false);
        EXPECT_EQ(row.write(handle), &handle);
        EXPECT_EQ(textsOf(*tree), row.text);
    }
}

TEST(Value, RefersToTheTree) {
    Items items;
    auto const first = value(items.parameter({.id = "a"}), "1");
    auto const second = value(items.parameter({.id = "b", .optional = true, .defaultValue = "x"}), nullptr);
    second->setIsUsingDefaultValue(true);
    Value handle(first.get(), false);
    Value copy(handle);
    copy.setString("2");
    EXPECT_STREQ(handle.asString(), "2");
    EXPECT_FALSE(handle.isNull() || handle.isExcluded() || handle.isDefaultValue());
    copy = Value(second.get(), false);
    EXPECT_TRUE(copy.isDefaultValue());
    EXPECT_STREQ(copy.asString(), "x");
    EXPECT_EQ(copy.getNumberOfValues(), 1u);
    copy = Value(nullptr, false);
    EXPECT_TRUE(copy.isNull() && copy.isExcluded() && !copy.isDefaultValue());
    EXPECT_EQ(copy.getNumberOfValues(), 0u);
    EXPECT_EQ(copy.getParameterValue(), nullptr);
}

TEST(ValueIterator, StepsThroughTheTexts) {
    Items items;
    auto const tree = value(items.parameter({.optional = true, .defaultValue = "d"}), "a", nullptr, "c");
    ValueIterator it(tree.get());
    auto const read = [](ValueIterator const& at) {
        std::string text;
        auto const thrown = whatOf<ConfigurationException>([&] { text = at.asString(); });
        return thrown == "<nothing>" ? text : thrown;
    };
    EXPECT_EQ(read(it), BEFORE);
    EXPECT_EQ(whatOf([&] { it.setString("x"); }), BEFORE);
    std::string texts;
    while (it.next()) {
        texts += read(it) + std::to_string(it.getCurrentValueIndex()) + " ";
        EXPECT_EQ(read(ValueIterator(it)), BEFORE); // a copy starts again
    }
    EXPECT_EQ(texts, "a0 d1 c2 ");
    EXPECT_FALSE(it.next());
    EXPECT_EQ(read(it), BEHIND);
    it.reset();
    EXPECT_TRUE(it.next() && it.next());
    it.setString("B");
    EXPECT_EQ(textsOf(*tree), "a,B,c");
    ValueIterator assigned(nullptr);
    EXPECT_FALSE(assigned.next() || assigned.next());
    assigned = it;
    EXPECT_EQ(read(assigned), BEFORE);
    EXPECT_EQ(assigned.getNumberOfValues(), 3u);
}

TEST(ValueGroup, NavigatesByName) {
    Items items;
    auto const tree = valueGroup("root", value(items.parameter({.id = "Port", .type = Parameter::INT_PARAMETER}), "7"),
                                 value(items.parameter({.id = "list"}), "a", "b"),
                                 valueGroup("box", value(items.parameter({}), "in")));
    ValueGroup const root(tree.get());
    EXPECT_EQ(root.getValue("PORT").asInteger(), 7);
    EXPECT_EQ(root.getValueIterator("LIST").getNumberOfValues(), 2u);
    EXPECT_STREQ(root.getValueGroup("BOX").getValue("id").asString(), "in");
    EXPECT_TRUE(root.getValue("none").isNull() && root.getValueIterator("none").isNull());
    EXPECT_EQ(ValueGroup(root).getCurrentValueGroup(), tree.get());

    ValueGroup null(nullptr);
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(null.getCurrentValueGroup(), nullptr);
    struct Row {
        void (*navigate)(ValueGroup const&);
        std::string found;
    };
    std::string const noValue = "\"box\" is not a parameter value";
    for (auto const& row : {
             Row{[](ValueGroup const& group) { group.getValue("box"); }, noValue},
             Row{[](ValueGroup const& group) { group.getValueIterator("box"); }, noValue},
             Row{[](ValueGroup const& group) { group.getValueGroup("none%s"); },
                 "The \"none%s\" value group was not found"},
             Row{[](ValueGroup const& group) { group.getValueGroupIterator("box"); }, "<nothing>"},
         }) {
        EXPECT_EQ(whatOf<ConfigurationException>([&] { row.navigate(root); }), row.found);
        EXPECT_EQ(whatOf<ConfigurationException>([&] { row.navigate(null); }), "Null ValueGroup");
    }
    null = root;
    EXPECT_FALSE(null.isNull());
}

TEST(ValueGroupIterator, StepsThroughTheBoundGroupsOfAnId) {
    Items items;
    auto const* a = items.group({.id = "A"});
    auto const* n = items.parameter({.id = "n", .type = Parameter::INT_PARAMETER});
    auto const tree = valueGroup("root", value(items.parameter({.id = "a"}), "x"), valueGroup(a, value(n, "1")),
                                 valueGroup(items.group({.id = "B"})), valueGroup("a"), valueGroup(a, value(n, "2")));
    auto it = ValueGroup(tree.get()).getValueGroupIterator("a");
    EXPECT_EQ(whatOf<ConfigurationException>([&] { it.getValue("n"); }), BEFORE);
    EXPECT_TRUE(it.next());
    EXPECT_EQ(it.getValue("N").asInteger(), 1);
    ValueGroupIterator copy(it); // keeps the position
    EXPECT_EQ(copy.getValue("n").asInteger(), 1);
    EXPECT_TRUE(it.next());
    EXPECT_EQ(it.getCurrentValueGroup(), tree->getItem(4));
    copy = it;
    EXPECT_FALSE(it.next() || it.next());
    EXPECT_EQ(whatOf<ConfigurationException>([&] { it.getValueGroup("n"); }), BEHIND);
    EXPECT_EQ(copy.getValue("n").asInteger(), 2);

    EXPECT_FALSE(ValueGroupIterator(tree.get(), "none").next());
    EXPECT_FALSE(ValueGroupIterator(nullptr, "a").next());
    EXPECT_EQ(whatOf([] { ValueGroupIterator(nullptr, "a").getValue("n"); }), "Null ValueGroup");
}

TEST(Handles, KeepTheOrderOfVirtualOperations) {
    EXPECT_THAT(slotsOf(&Value::asBoolean, &Value::asString, &Value::asInteger, &Value::asUnsignedInteger,
                        &Value::asDouble, &Value::setBoolean, &Value::setString, &Value::setInteger,
                        &Value::setUnsignedInteger, &Value::setDouble, &Value::getCurrentValueIndex,
                        &Value::getParameterValue),
                testing::ElementsAre(2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13));
    EXPECT_EQ(slotOf(&ValueGroup::getCurrentValueGroup), 2u);
}

} // namespace
