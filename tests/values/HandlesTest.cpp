#include <configuration/ConfigurationException.h>
#include <configuration/ValueGroupIterator.h>

#include "support/CommaLocale.h"
#include "support/Exceptions.h"
#include "support/Schema.h"
#include "support/ValueTree.h"

#include <barrier>
#include <climits>
#include <gtest/gtest.h>
#include <thread>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

std::string const BEFORE = "Must call next() before dereferencing an iterator";
std::string const BEHIND = "Dereferencing iterator after next() returns false";

/// Writes and reads values of all types: those that an accessor is not for are refused.
template <class Content>
void checkAccess(Parameter::ValueType type, std::string const& typeName, auto read, auto write, auto given,
                 char const* text) {
    Items items;
    Value null(nullptr, false);
    EXPECT_EQ(whatOf<ConfigurationException>([&] { (null.*read)(); }), "Value is null");
    EXPECT_EQ(whatOf<ConfigurationException>([&] { (null.*write)(given); }), "Value is null");
    for (int i = Parameter::BOOLEAN_PARAMETER; i <= Parameter::ENUM_PARAMETER; ++i) {
        SCOPED_TRACE(typeName + " on " + std::to_string(i));
        auto const tree = value(items.parameter({.type = Parameter::ValueType(i)}), "old");
        Value handle(tree.get(), false);
        bool const fits = i == type || (i == Parameter::ENUM_PARAMETER && type == Parameter::INT_PARAMETER);
        auto const thrown = fits ? "<nothing>" : contractText("mValue->getValueType() == Parameter::" + typeName);
        EXPECT_EQ(whatOf([&] { (handle.*write)(given); }), thrown);
        EXPECT_EQ(whatOf([&] { EXPECT_EQ(Content((handle.*read)()), Content(given)); }), thrown);
        EXPECT_EQ(whatOf([&] { (ValueIterator(tree.get()).*read)(); }), fits ? BEFORE : thrown);
        EXPECT_EQ(textsOf(*tree), fits ? text : "old");
    }
}

TEST(Value, EachAccessorHasItsTypes) {
    CommaLocale const locale;
    ASSERT_TRUE(locale.isActive());
    using P = Parameter;
    using V = Value;
    checkAccess<bool>(P::BOOLEAN_PARAMETER, "BOOLEAN_PARAMETER", &V::asBoolean, &V::setBoolean, false, "0");
    checkAccess<std::string>(P::STRING_PARAMETER, "STRING_PARAMETER", &V::asString, &V::setString, "%s", "%s");
    checkAccess<int>(P::INT_PARAMETER, "INT_PARAMETER || mValue->getValueType() == Parameter::ENUM_PARAMETER",
                     &V::asInteger, &V::setInteger, INT_MIN, "-2147483648");
    checkAccess<unsigned>(P::UINT_PARAMETER, "UINT_PARAMETER", &V::asUnsignedInteger, &V::setUnsignedInteger, UINT_MAX,
                          "4294967295");
    for (auto const& [number, text] : {std::pair(0.1, "0.1"), {1e6, "1e+06"}, {-1.23457e-300, "-1.23457e-300"}}) {
        checkAccess<double>(P::DOUBLE_PARAMETER, "DOUBLE_PARAMETER", &V::asDouble, &V::setDouble, number, text);
    }
}

TEST(ValueIterator, StepsThroughTheTexts) {
    Items items;
    auto const tree = value(items.parameter({.optional = true, .defaultValue = "d"}), "a", nullptr, "c");
    ValueIterator it(tree.get());
    std::string texts;
    while (it.next()) {
        texts += it.asString() + std::to_string(it.getCurrentValueIndex()) + " ";
        EXPECT_EQ(whatOf([&] { ValueIterator(it).asString(); }), BEFORE); // a copy starts again
    }
    EXPECT_EQ(texts, "a0 d1 c2 ");
    EXPECT_FALSE(it.next() || ValueIterator(nullptr).next());
    EXPECT_EQ(whatOf<ConfigurationException>([&] { it.asString(); }), BEHIND);
    it.reset();
    EXPECT_TRUE(it.next() && it.next());
    it.setString("B");
    ValueIterator assigned(nullptr);
    EXPECT_EQ(whatOf([&] { (assigned = it).asString(); }) + textsOf(*tree), BEFORE + "a,B,c");
}

TEST(ValueGroup, NavigatesByName) {
    Items items;
    auto const tree = valueGroup("root", valueGroup("box", value(items.parameter({.id = "Port"}), "in")));
    ValueGroup group(nullptr);
    auto const navigate = [&](auto... calls) { return (... + (whatOf([&] { calls(group); }) + "\n")); };
    auto const all = [&] {
        return navigate([](auto& g) { g.getValue("box"); }, [](auto& g) { g.getValueIterator("box"); },
                        [](auto& g) { g.getValueGroup("no%s"); }, [](auto& g) { g.getValueGroupIterator("box"); });
    };
    EXPECT_EQ(all(), "Null ValueGroup\nNull ValueGroup\nNull ValueGroup\nNull ValueGroup\n");
    group = ValueGroup(tree.get());
    EXPECT_EQ(all(), "\"box\" is not a parameter value\n\"box\" is not a parameter value\n"
                     "The \"no%s\" value group was not found\n<nothing>\n");
    auto handle = group.getValue("none");
    EXPECT_TRUE(handle.isNull() && handle.isExcluded() && !handle.isDefaultValue() && !handle.getNumberOfValues());
    handle = group.getValueGroup("BOX").getValue("PORT");
    EXPECT_FALSE(handle.isNull() || handle.isExcluded() || handle.isDefaultValue());
}

TEST(ValueGroupIterator, StepsThroughTheBoundGroupsOfAnId) {
    Items items;
    auto const* a = items.group({.id = "A"});
    auto const* n = items.parameter({.id = "n"});
    auto const tree = valueGroup("root", value(items.parameter({.id = "a"}), "x"), valueGroup(a, value(n, "1")),
                                 valueGroup(items.group({.id = "B"})), valueGroup("a"), valueGroup(a, value(n, "2")));
    auto it = ValueGroup(tree.get()).getValueGroupIterator("a");
    EXPECT_EQ(whatOf<ConfigurationException>([&] { it.getValue("n"); }), BEFORE);
    EXPECT_TRUE(it.next());
    EXPECT_STREQ(ValueGroupIterator(it).getValue("N").asString(), "1"); // a copy keeps the position
    EXPECT_TRUE(it.next());
    ValueGroupIterator assigned(nullptr, "b");
    assigned = it;
    EXPECT_FALSE(it.next() || it.next() || ValueGroupIterator(nullptr, "a").next());
    EXPECT_EQ(whatOf<ConfigurationException>([&] { it.getValueGroup("n"); }), BEHIND);
    EXPECT_STREQ(assigned.getValue("n").asString(), "2");
}

// All threads meet the same finished tree for the first time: flags without a text, and a list without an index.
TEST(Handles, ConcurrentFirstReadsOfOneTree) {
    Items items;
    auto const tree = valueGroup("root");
    for (int i = 0; i < 500; ++i) {
        auto const id = "flag" + std::to_string(i);
        ParameterFields const flag{.id = id.c_str(), .optional = true, .type = Parameter::BOOLEAN_PARAMETER};
        tree->addItem(value(items.parameter(flag), nullptr).release());
    }
    std::barrier start(4);
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            start.arrive_and_wait();
            for (int i = 0; i < 500; ++i) {
                EXPECT_TRUE(ValueGroup(tree.get()).getValue(("FLAG" + std::to_string(i)).c_str()).asBoolean());
            }
        });
    }
}

} // namespace
