#include <configuration/ValueGroupIterator.h>

#include "support/CommaLocale.h"
#include "support/Exceptions.h"
#include "support/Schema.h"
#include "support/ValueTree.h"

#include <barrier>
#include <gtest/gtest.h>
#include <thread>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

std::string const BEFORE = "Must call next() before dereferencing an iterator";
std::string const BEHIND = "Dereferencing iterator after next() returns false";

/// Writes and reads values of all types: those that an accessor is not for are refused.
template <class Content>
void checkAccess(Parameter::ValueType type, std::string const& name, auto read, auto write, auto given, auto text) {
    Items items;
    EXPECT_EQ(whatOf([&] { (Value(nullptr, false).*read)(); }), "Value is null");
    EXPECT_EQ(whatOf([&] { (Value(nullptr, false).*write)(given); }), "Value is null");
    for (int i = Parameter::BOOLEAN_PARAMETER; i <= Parameter::ENUM_PARAMETER; ++i) {
        SCOPED_TRACE(name + " on " + std::to_string(i));
        auto const tree = value(items.parameter({.type = Parameter::ValueType(i)}), "old");
        Value handle(tree.get(), false);
        bool const fits = i == type || (i == Parameter::ENUM_PARAMETER && type == Parameter::INT_PARAMETER);
        auto const thrown = fits ? "<nothing>" : contractText("mValue->getValueType() == Parameter::" + name);
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
                     &V::asInteger, &V::setInteger, -2147483647, "-2147483647");
    checkAccess<unsigned>(P::UINT_PARAMETER, "UINT_PARAMETER", &V::asUnsignedInteger, &V::setUnsignedInteger,
                          4294967295u, "4294967295");
    checkAccess<double>(P::DOUBLE_PARAMETER, "DOUBLE_PARAMETER", &V::asDouble, &V::setDouble, 2.5e6, "2.5e+06");
}

TEST(ValueGroup, NavigatesByName) {
    Items items;
    auto const tree = valueGroup("root", valueGroup("box", value(items.parameter({.id = "Port"}), "in")));
    ValueGroup const null(nullptr);
    ValueGroup const root(tree.get());
    auto const both = [&](auto go) { return whatOf([&] { go(null); }) + ", " + whatOf([&] { go(root); }); };
    EXPECT_EQ(both([](auto& g) { g.getValue("box"); }), "Null ValueGroup, \"box\" is not a parameter value");
    EXPECT_EQ(both([](auto& g) { g.getValueIterator("box"); }), "Null ValueGroup, \"box\" is not a parameter value");
    EXPECT_EQ(both([](auto& g) { g.getValueGroup("%s"); }), "Null ValueGroup, The \"%s\" value group was not found");
    EXPECT_EQ(both([](auto& g) { g.getValueGroupIterator("box"); }), "Null ValueGroup, <nothing>");
    EXPECT_STREQ(root.getValueGroup("BOX").getValue("PORT").asString(), "in");
}

TEST(Iterators, StepThroughTheTextsAndTheBoundGroupsOfAnId) {
    Items items;
    auto const list = value(items.parameter({.optional = true, .defaultValue = "d"}), "a", nullptr, "c");
    ValueIterator it(list.get());
    std::string texts;
    while (it.next()) {
        texts += it.asString() + std::to_string(it.getCurrentValueIndex()) + " ";
        EXPECT_EQ(whatOf([&] { ValueIterator(it).asString(); }), BEFORE); // a copy starts again
    }
    EXPECT_EQ(texts, "a0 d1 c2 ");
    EXPECT_FALSE(it.next() || ValueIterator(nullptr).next());
    EXPECT_EQ(whatOf([&] { it.asString(); }), BEHIND);
    it.reset();
    EXPECT_TRUE(it.next() && it.next());
    it.setString("B");
    ValueIterator assigned(nullptr);
    EXPECT_EQ(whatOf([&] { (assigned = it).asString(); }) + textsOf(*list), BEFORE + "a,B,c");

    auto const* a = items.group({.id = "A"});
    auto const* n = items.parameter({.id = "n"});
    auto const tree = valueGroup("root", value(items.parameter({.id = "a"}), "x"), valueGroup(a, value(n, "1")),
                                 valueGroup(items.group({.id = "B"})), valueGroup("a"), valueGroup(a, value(n, "2")));
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

// All threads meet the same finished tree for the first time: flags without a text, and a list without an index.
TEST(Handles, ConcurrentFirstReadsOfOneTree) {
    Items items;
    auto const* flag = items.parameter({.id = "flag", .optional = true, .type = Parameter::BOOLEAN_PARAMETER});
    auto const tree = valueGroup("root", value(flag, nullptr));
    for (int i = 0; i < 500; ++i) {
        tree->addValue(("more" + std::to_string(i)).c_str(), nullptr);
    }
    std::barrier start(4);
    auto const read = [&] {
        start.arrive_and_wait();
        EXPECT_TRUE(ValueGroup(tree.get()).getValue("FLAG").asBoolean());
    };
    std::jthread const threads[] = {std::jthread(read), std::jthread(read), std::jthread(read), std::jthread(read)};
}

} // namespace
