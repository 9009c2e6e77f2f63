#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterEnumValue.h>
#include <configuration/ParameterErrors.h>

#include "schema/NameComparison.h"
#include "support/CaseFile.h"
#include "support/Exceptions.h"
#include "support/Latin1Locale.h"
#include "support/Notation.h"
#include "support/WalkLog.h"
#include "values/ValueChecks.h"
#include "values/ValueItemUtil.h"

#include <gtest/gtest.h>
#include <random>
#include <sstream>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

using Group = ParameterValueGroup;
using Item = ParameterValueItem;

/// What the readers of the first entry return: int, unsigned, double and bool.
std::string numbersOf(ParameterValue const& value) {
    std::ostringstream text;
    text.precision(12);
    text << value.getIntValue(0) << ' ' << value.getUIntValue(0) << ' ' << value.getDoubleValue(0) << ' '
         << (value.getBooleanValue(0) ? "true" : "false");
    return text.str();
}

TEST(ParameterValue, AnEntryWithoutATextReadsAsTheParameterSays) {
    Items items;
    checkCases("values/absent-texts.txt", [&](FileCase const& row) {
        ParameterValue const absent(items.parameter(row["case"]), nullptr);
        auto const withDefault = textsOf(absent);
        char const* const text = absent.getValue(0, false);
        return withDefault + " " + (text ? text : "<none>") + " / " + numbersOf(absent) + "\n";
    });
    auto* group = items.group("g{flag:bool?}");
    auto const tree = treeOf("root{flag=<none>,<none>}", *group);
    auto& flags = *tree->getValue("flag");
    EXPECT_TRUE(flags.getBooleanValue(0)); // it keeps the text that it was read as
    ValueItemUtil().assignParameterItem(flags, items.parameter("flag:bool"));
    EXPECT_EQ(toText(flags), "flag=1,<none>");
    flags.setValue(0, nullptr);
    EXPECT_EQ(toText(flags), "flag=<none>,<none>");
}

TEST(ParameterValue, ConvertsTextsLenientlyInEveryLocale) {
    Latin1Locale const locale;
    checkCases("values/numbers.txt", [](FileCase const& row) {
        return numbersOf(ParameterValue("unbound", unescaped(row["case"]).c_str())) + "\n";
    });
}

TEST(ParameterValue, WideNumbersAreReadExactlyOrRefused) {
    Latin1Locale const locale;
    checkCases("values/wide-numbers.txt", [](FileCase const& row) {
        Items items;
        ParameterValue const value(items.parameter("p:" + row["type"]), unescaped(row["case"]).c_str());
        ParameterErrors errors;
        checkValue(&value, value.getValueType(), errors, nullptr);
        return lines({std::to_string(value.getLongValue(0)) + " " + std::to_string(value.getULongValue(0)),
                      errors.getNumberOfErrors() > 0 ? errors.getError(0) : ""});
    });
}

TEST(ParameterValue, ALabelReadsAsItsNumber) {
    ParameterEnumDefinition levels("levels");
    for (auto const& [label, number] : {std::pair("high", 2), {"high", 7}, {"HIGH", 5}, {"below", -3}}) {
        levels.addEnumValue(label, number); // the first number of a label stays
    }
    Items items;
    auto* level = items.parameter("level:enum=high");
    EXPECT_EQ(numbersOf(ParameterValue(level, "2")), "2 2 2 true"); // no definition yet
    level->setEnumDefinition(&levels);
    EXPECT_EQ(numbersOf(ParameterValue(level, "high")), "2 2 2 true");
    EXPECT_EQ(numbersOf(ParameterValue(level, "below")), "-3 4294967293 -3 true");
    EXPECT_EQ(numbersOf(ParameterValue(level, nullptr)), "0 0 0 false");
    EXPECT_EQ(ParameterValue(level, "below").getLongValue(0), -3);
    EXPECT_EQ(ParameterValue(level, "below").getULongValue(0) + ParameterValue(level, nullptr).getULongValue(0), 0u);
    ParameterValue const unknown(level, "High%s");
    EXPECT_EQ(whatOf([&] { unknown.getBooleanValue(0); }), "symbol \"High%s\" was not found");
    EXPECT_EQ(whatOf([&] { unknown.getDoubleValue(0); }), "symbol \"High%s\" was not found");
    ParameterEnumValue own("own", "below");
    EXPECT_EQ(whatOf([&] { own.getDoubleValue(0); }), "Must set the enumeration defintion first");
    EXPECT_EQ(whatOf([&] { own.getLongValue(0); }), "Must set the enumeration defintion first");
    own.setEnumDefinition(levels);
    EXPECT_EQ(static_cast<ParameterValue const&>(own).getLongValue(0), -3);
    std::unique_ptr<ParameterEnumValue> const clone(own.clone(Item::SHALLOW_COPY));
    ParameterEnumValue assigned("other", nullptr); // without labels
    assigned = own;
    EXPECT_EQ(numbersOf(*clone) + ", " + numbersOf(assigned), "-3 4294967293 -3 true, -3 4294967293 -3 true");
    assigned.setValue(0, nullptr);
    EXPECT_EQ(whatOf([&] { assigned.getUIntValue(0); }), "symbol \"\" was not found");
}

TEST(ParameterValue, ACopyHoldsAllOfItsSource) {
    Items items;
    auto const tree = treeOf("{flag=text number=0,2 unbound=text}", *items.group("g{flag:bool number:int}"));
    auto& number = *tree->getValue("number");
    number.setIsUsingDefaultValue(true);
    ParameterValue copy(number);
    EXPECT_EQ(toText(copy), "number*=0,2");
    EXPECT_EQ(toText(copy = *tree->getValue("unbound")), "unbound?=text");
    EXPECT_EQ(toText(copy = number), "number*=0,2");
    EXPECT_EQ(toText(copy = *tree->getValue("flag")), "flag=text");
}

TEST(ParameterValueGroup, FindsByIdAndNameAndDetachesWithoutDestroying) {
    Items items;
    auto const* port = items.parameter("id/port");
    auto const group = treeOf("root{box%s{} =nameless}");
    group->addItem(std::make_unique<ParameterValue>(port, "1").release());
    group->addValue("PORT", "2");
    group->addValue("port", nullptr);
    EXPECT_EQ(whatOf([&] { group->addValue("BOX%s", "1"); }), "\"BOX%s\" is not a parameter value");
    std::unique_ptr<Item> const detached(group->getItem(port));
    EXPECT_TRUE(detached.get() != group->getValue(port) && !group->getItem(""));
    ValueItemUtil().setParameterItemId(*detached, "renamed"); // a bound item is known by its schema item
    EXPECT_TRUE(group->removeItem("ID") && !group->removeItem("id"));
    EXPECT_EQ(toText(*group) + toText(*detached), "root?{box%s?{} ?=nameless PORT?=2,<none>}id=1");
    EXPECT_EQ(detached->getParentGroup(), nullptr);
}

TEST(ParameterValueGroup, CopiesWithOrWithoutItems) {
    Items items;
    auto const root = treeOf("root{box{low{b=1} p=1,<none>,100%s}}", *items.group("box{p}"));
    auto& source = static_cast<Group&>(*root->getItem(0ul));
    source.getValue("p")->setIsUsingDefaultValue(true);
    source.addItem(std::make_unique<ParameterEnumValue>("e", "x").release());
    std::unique_ptr<Group> const deep(source.clone(Item::DEEP_COPY));
    source = *&source;
    auto assigned = *treeOf("assigned{old=1}");
    assigned = source;
    source.addValue("p", "2");
    for (auto* copy : {deep.get(), &assigned}) {
        EXPECT_EQ(toText(*copy), "box{low?{b?=1} p*=1,<none>,100%s e?=x}");
        EXPECT_EQ(copy->getItem("low")->getParentGroup(), copy);
        EXPECT_NE(dynamic_cast<ParameterEnumValue*>(copy->getItem("e")), nullptr);
    }
    EXPECT_EQ(toText(*std::unique_ptr<Group>(source.clone(Item::SHALLOW_COPY))), "box{}");
    // A group that becomes a copy of its descendant keeps its parent. The deep copy is in no list, but has one.
    for (auto* group : {deep.get(), &source, root.get()}) {
        auto* const parent = group == root.get() ? nullptr : root.get();
        *group = static_cast<Group&>(*group->getItem(0ul));
        EXPECT_EQ(toText(*group), "low?{b?=1}");
        EXPECT_EQ(group->getParentGroup(), parent);
        EXPECT_EQ(group->getItem("b")->getParentGroup(), group);
    }
}

// The index beside a large list has to follow every change of the list and of its items' ids.
TEST(ParameterValueGroup, FindsAsAScanThroughAllChanges) {
    std::mt19937 random(3);
    auto const text = [&] { return (random() % 2 ? "Key" : "kEY") + std::to_string(random() % 15); };
    Items items;
    ValueItemUtil util;
    Group group("root");
    for (int step = 0; step < 6000; ++step) {
        auto const id = text();
        auto const position = random() % std::max(group.getNumberOfItems(), 1ul);
        auto* item = position < group.getNumberOfItems() ? group.getItem(position) : nullptr;
        auto const kind = step > 150 && item ? random() % 100 : 99;
        if (kind == 0) {
            util.setParameterItemId(*item, id.c_str());
        } else if (kind == 1) {
            util.assignParameterItem(*item, items.parameter(id));
        } else if (kind == 2) {
            static_cast<ParameterValue&>(*item) = ParameterValue(id.c_str(), "y");
        } else if (kind == 3) {
            group = Group(group);
        } else if (kind < 52) {
            std::unique_ptr<Item> const detached(item);
            group.removeItem(position);
        } else {
            group.addItem(std::make_unique<ParameterValue>(id.c_str(), "x").release());
        }
        Item const* expected = nullptr;
        auto const sought = text();
        for (unsigned long i = group.getNumberOfItems(); i-- > 0;) {
            expected = equalIgnoringCase(idOf(*group.getItem(i)), sought) ? group.getItem(i) : expected;
        }
        ASSERT_EQ(group.getItem(sought.c_str()), expected) << "step " << step;
    }
    ASSERT_GT(group.getNumberOfItems(), 10u);
}

TEST(ParameterValueGroup, FindsWhatIsAddedAfterTheLastOfAKeyWasRemoved) {
    auto const group = treeOf("{key=1 a= b= c= d= e= f= g= h= Key=2}");
    std::unique_ptr<Item> const first(group->getItem("key")); // the look-up makes the index
    std::unique_ptr<Item> const last(group->getItem(9));
    group->removeItem(9);
    auto* const added = std::make_unique<ParameterValue>("KEY", "3").release();
    group->addItem(added);
    group->removeItem(0ul);
    EXPECT_EQ(group->getItem("key"), added);
}

// The index must not remember the texts of what an item is no longer bound to.
TEST(ParameterValueGroup, OutlivesTheSchemaThatItsItemsWereBoundTo) {
    Items items;
    auto const group = treeOf("{a= b= c= d= e= f= g= h= i=}");
    std::string const longId(40, 'x');
    auto former = std::make_unique<Items>();
    group->getItem("a");
    auto* item = std::make_unique<ParameterValue>(former->parameter(longId), "1").release();
    group->addItem(item);
    ValueItemUtil().assignParameterItem(*item, items.parameter(longId));
    former.reset();
    EXPECT_EQ(group->getItem(std::string(40, 'X').c_str()), item);
}

TEST(ParameterValueGroup, IsWalkedThroughTheItemsOfTheStart) {
    checkCases("values/walks.txt", [](FileCase const& row) {
        auto const root = treeOf("root{a=1 in{b=<none>} c=3}");
        auto const change = [&] {
            if (row["change"] == "add") {
                root->addItem(treeOf("no{d=1}").release());
            } else {
                std::unique_ptr<Item> c(root->getItem("c"));
                root->removeItem("c");
                static_cast<Group*>(root->getItem("in"))->addItem(c.release());
            }
        };
        auto const walk = [&](bool isMutator) {
            return walkLog(*root, {.decline = "no", .at = row["at"], .action = change, .isMutator = isMutator});
        };
        return walk(row["visitor"] == "mutator") + "\n";
    });
}

} // namespace
