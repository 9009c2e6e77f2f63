#include <configuration/ValueGroupIterator.h>

#include "support/Exceptions.h"
#include "support/Latin1Locale.h"
#include "support/Notation.h"

#include <gmock/gmock.h>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

std::string const BEFORE = "Must call next() before dereferencing an iterator";
std::string const BEHIND = "Dereferencing iterator after next() returns false";

/// Writes to values of all types, and reads what was written. @return the types that take it
std::string typesTaking(auto write, auto given, std::string const& text, auto read, auto matcher,
                        std::string const& condition) {
    EXPECT_EQ(whatOf([&] { (Value(nullptr, false).*read)(); }), "Value is null");
    EXPECT_EQ(whatOf([&] { (Value(nullptr, false).*write)(given); }), "Value is null");
    std::string taking;
    for (std::string const type :
         {"bool", "string", "int", "uint", "double", "oid", "enum", "long", "ulong", "size", "duration"}) {
        Items items;
        ParameterValue value(items.parameter("p:" + type), "old");
        Value handle(&value, false);
        auto const refused = whatOf([&] { (handle.*write)(given); });
        if (refused == "<nothing>") {
            EXPECT_THAT((handle.*read)(), matcher);
            EXPECT_EQ(textsOf(value), text + (type == "duration" ? "ms" : ""));
            EXPECT_EQ(whatOf([&] { (ValueIterator(&value).*read)(); }), BEFORE);
            taking += type + " ";
        } else {
            EXPECT_EQ(refused, contractText("mValue->getValueType() == Parameter::" + condition));
            EXPECT_EQ(whatOf([&] { (ValueIterator(&value).*read)(); }), refused);
            EXPECT_EQ(textsOf(value), "old");
        }
    }
    return taking;
}

TEST(Value, EachAccessorTakesItsTypesOnly) {
    Latin1Locale const locale;
    // clang-format off
    EXPECT_EQ(typesTaking(&Value::setBoolean, false, "0", &Value::asBoolean, false, "BOOLEAN_PARAMETER"), "bool ");
    EXPECT_EQ(typesTaking(&Value::setString, "%s", "%s", &Value::asString, testing::StrEq("%s"), "STRING_PARAMETER"), "string ");
    EXPECT_EQ(typesTaking(&Value::setInteger, -2147483647, "-2147483647", &Value::asInteger, -2147483647,
        "INT_PARAMETER || mValue->getValueType() == Parameter::ENUM_PARAMETER"), "int enum ");
    EXPECT_EQ(typesTaking(&Value::setUnsignedInteger, ~0u, "4294967295", &Value::asUnsignedInteger, ~0u, "UINT_PARAMETER"), "uint ");
    EXPECT_EQ(typesTaking(&Value::setDouble, 2.5e6, "2.5e+06", &Value::asDouble, 2.5e6, "DOUBLE_PARAMETER"), "double ");
    std::string const wide = " || mValue->getValueType() == Parameter::SIZE_PARAMETER || mValue->getValueType() == Parameter::DURATION_PARAMETER";
    EXPECT_EQ(typesTaking(&Value::setLong, 1l << 40, "1099511627776", &Value::asLong, 1l << 40, "LONG_PARAMETER" + wide), "long size duration ");
    EXPECT_EQ(typesTaking(&Value::setUnsignedLong, 1ul << 40, "1099511627776", &Value::asUnsignedLong, 1ul << 40, "ULONG_PARAMETER" + wide), "ulong size duration ");
    // clang-format on
}

TEST(Value, WritesNoNumberThatItsTypeLacks) {
    Items items;
    ParameterValue size(items.parameter("p/%s:size"), "1k");
    ParameterValue duration(items.parameter("p:duration"), "1s");
    EXPECT_EQ(whatOf([&] { Value(&size, false).setLong(-1); }), "%s: \"-1\" is not a valid size");
    EXPECT_EQ(whatOf([&] { Value(&duration, false).setUnsignedLong(1ul << 63); }),
              "p: \"9223372036854775808ms\" is not a valid duration");
    EXPECT_EQ(textsOf(size) + " " + textsOf(duration), "1k 1s");
    EXPECT_EQ(Value(&size, false).setUnsignedLong(~0ul).asLong(), INT64_MAX);
}

TEST(ValueGroup, NavigatesByName) {
    Items items;
    auto const tree = treeOf("root{box{Port=in}}", *items.group("box{Port}"));
    ValueGroup const root(tree.get());
    auto const both = [&](auto go) {
        return whatOf([&] { go(ValueGroup(nullptr)); }) + ", " + whatOf([&] { go(root); });
    };
    EXPECT_EQ(both([](auto const& g) { g.getValue("box"); }), "Null ValueGroup, \"box\" is not a parameter value");
    EXPECT_EQ(both([](auto const& g) { g.getValueIterator("box"); }),
              "Null ValueGroup, \"box\" is not a parameter value");
    EXPECT_EQ(both([](auto const& g) { g.getValueGroup("%s"); }),
              "Null ValueGroup, The \"%s\" value group was not found");
    EXPECT_EQ(both([](auto const& g) { g.getValueGroupIterator("box"); }), "Null ValueGroup, <nothing>");
    EXPECT_STREQ(root.getValueGroup("BOX").getValue("PORT").asString(), "in");
}

TEST(ValueIterator, StepsThroughTheTexts) {
    Items items;
    auto const list = treeOf("list{p=a,<none>,c}", *items.group("g{p?=d}"));
    ValueIterator it(list->getValue("p"));
    std::string texts;
    while (it.next()) {
        texts += it.asString() + std::to_string(it.getCurrentValueIndex()) + " ";
        EXPECT_EQ(whatOf([&] { ValueIterator(it).asString(); }), BEFORE); // a copy starts again
    }
    EXPECT_EQ(texts, "a0 d1 c2 ");
    EXPECT_EQ(whatOf([&] { it.asString(); }), BEHIND);
    EXPECT_FALSE(it.next() || ValueIterator(nullptr).next());
    it.reset();
    ValueIterator assigned(nullptr);
    EXPECT_EQ(assigned.getNumberOfValues(), 0u);
    EXPECT_TRUE(it.next() && it.next() && (assigned = it).next());
    it.setString("B");
    EXPECT_EQ(assigned.getCurrentValueIndex(), 0u); // an assignment starts again, whatever was there
    EXPECT_EQ(whatOf([&] { (assigned = it).asString(); }) + toText(*list), BEFORE + "list?{p=a,B,c}");
}

TEST(ValueGroupIterator, StepsThroughTheBoundGroupsOfAnId) {
    Items items;
    auto const tree = treeOf("root{n=x A{n=1} B{} A{n=2}}", *items.group("schema{A{n} B{}}"));
    tree->addItem(treeOf("a{}").release()); // not bound
    auto group = ValueGroup(tree.get()).getValueGroupIterator("a");
    EXPECT_EQ(whatOf([&] { group.getValue("n"); }), BEFORE);
    EXPECT_TRUE(group.next());
    EXPECT_STREQ(ValueGroupIterator(group).getValue("N").asString(), "1"); // a copy keeps the position
    EXPECT_TRUE(group.next());
    ValueGroupIterator other(nullptr, "b");
    other = group;
    EXPECT_FALSE(group.next() || group.next() || ValueGroupIterator(nullptr, "a").next());
    EXPECT_EQ(whatOf([&] { group.getValueGroup("n"); }), BEHIND);
    EXPECT_STREQ(other.getValue("n").asString(), "2");
}

} // namespace
