#include <configuration/ConfigurationException.h>
#include <configuration/ParameterEnumValue.h>

#include "schema/NameComparison.h"
#include "support/Exceptions.h"
#include "support/Schema.h"
#include "support/ValueTree.h"
#include "values/ValueItemUtil.h"

#include <gtest/gtest.h>
#include <random>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

using Item = ParameterValueItem;

TEST(ParameterValueGroup, CollectsTextsUnderOneId) {
    auto const group = valueGroup("root", valueGroup("box%s"));
    group->addValue("port", "1");
    group->addValue("a", nullptr);
    group->addValue("PORT", "2");
    group->addValue("port", nullptr);
    EXPECT_EQ(toText(*group), "root?{box%s?{} port?=1,2,<none> a?=<none>}");
    EXPECT_EQ(group->getItem("a")->getParentGroup(), group.get());
    std::string const noValue = "\"BOX%s\" is not a parameter value";
    EXPECT_EQ(whatOf<ConfigurationException>([&] { group->addValue("BOX%s", "1"); }), noValue);
    EXPECT_EQ(whatOf<ConfigurationException>([&] { group->getValue("BOX%s"); }), noValue);
}

TEST(ParameterValueGroup, FindsItemsByIdAndValuesByName) {
    Items items;
    auto const* port = items.parameter({.id = "id", .name = "name"});
    auto const group = valueGroup(nullptr, value("first", "1"), value(port, "2"), value("NAME", "3"), value("Id", "4"));
    group->addItem(value("", "nameless").release());
    EXPECT_EQ(group->getItem("ID"), group->getItem(1));
    EXPECT_EQ(group->getItem(port), group->getItem(1));
    EXPECT_EQ(group->getValue(port), group->getItem(2));
    EXPECT_EQ(group->getValue("Name"), group->getItem(2));
    EXPECT_EQ(group->getValue("none"), nullptr);
    EXPECT_EQ(group->getItem("none"), nullptr);
    EXPECT_EQ(group->getItem(""), nullptr);
    EXPECT_EQ(group->getItem(items.parameter({.id = "none", .name = "name"})), nullptr);
}

TEST(ParameterValueGroup, DetachesWithoutDestroying) {
    auto const group = valueGroup("root", value("a", "1"), value("B", "2"), value("b", "3"), value("c", "4"));
    std::unique_ptr<Item> const a(group->getItem("a"));
    std::unique_ptr<Item> const b(group->getItem("b"));
    group->removeItem(0ul);
    EXPECT_TRUE(group->removeItem("b"));
    EXPECT_FALSE(group->removeItem("a"));
    EXPECT_EQ(toText(*group) + toText(*a) + toText(*b), "root?{b?=3 c?=4}a?=1B?=2");
    EXPECT_EQ(a->getParentGroup(), nullptr);
}

TEST(ParameterValueGroup, CopiesWithOrWithoutItems) {
    Items items;
    auto const* box = items.group({.id = "box"});
    auto const root = valueGroup("root", valueGroup(box, value("a", "1"), valueGroup("low", value("b", nullptr))));
    auto& source = static_cast<ParameterValueGroup&>(*root->getItem(0ul));
    source.addItem(std::make_unique<ParameterEnumValue>("e", "x").release());
    std::string const text = "box{a?=1 low?{b?=<none>} e?=x}";

    auto const checkDeep = [&](ParameterValueGroup const& copy) {
        EXPECT_EQ(toText(copy), text);
        EXPECT_EQ(copy.getParentGroup(), root.get());
        for (unsigned long i = 0; i < 3; ++i) {
            EXPECT_EQ(copy.getItem(i)->getParentGroup(), &copy);
            EXPECT_NE(copy.getItem(i), source.getItem(i));
        }
        auto const* low = static_cast<ParameterValueGroup*>(copy.getItem("low"));
        EXPECT_EQ(low->getItem("b")->getParentGroup(), low);
        EXPECT_NE(dynamic_cast<ParameterEnumValue*>(copy.getItem("e")), nullptr);
    };
    ParameterValueGroup const copy(source);
    ParameterValueGroup assigned("other");
    assigned.addValue("old", "1");
    assigned = source;
    std::unique_ptr<ParameterValueGroup> const deep(source.clone(Item::DEEP_COPY));
    std::unique_ptr<ParameterValueGroup> const shallow(source.clone(Item::SHALLOW_COPY));
    auto const& alias = source;
    source = alias;
    checkDeep(copy);
    checkDeep(assigned);
    checkDeep(*deep);
    EXPECT_EQ(toText(source), text);
    EXPECT_EQ(toText(*shallow), "box{}");
    EXPECT_EQ(shallow->getParameterGroup(), box);
    assigned.addValue("a", "2");
    EXPECT_EQ(toText(source), text);
}

TEST(ParameterValueGroup, CanBecomeACopyOfItsOwnDescendant) {
    auto const root = valueGroup("root", valueGroup("box", valueGroup("low", value("a", "1"))), value("b", "2"));
    *root = static_cast<ParameterValueGroup&>(*static_cast<ParameterValueGroup&>(*root->getItem("box")).getItem("low"));
    EXPECT_EQ(toText(*root), "low?{a?=1}");
    EXPECT_EQ(root->getItem("a")->getParentGroup(), root.get());
    EXPECT_EQ(root->getItem("b"), nullptr);
}

// The index must not remember the texts of what an item is no longer bound to.
TEST(ParameterValueGroup, RebindingForgetsTheFormerSchemaItem) {
    constexpr char const* id = "an_id_that_is_longer_than_small_strings_are";
    Items items;
    auto former = std::make_unique<Items>();
    auto const group = valueGroup("root", value(former->parameter({.id = id}), "1"));
    for (int i = 0; i < 20; ++i) {
        group->addValue(std::to_string(i).c_str(), "x");
    }
    auto* item = group->getItem(id); // builds the index
    ValueItemUtil().assignParameterItem(*item, items.parameter({.id = id}));
    former.reset();
    EXPECT_EQ(group->getItem("AN_ID_THAT_IS_LONGER_THAN_SMALL_STRINGS_ARE"), item);
}

// The index beside a large list has to follow every change of the list and of its items' ids.
TEST(ParameterValueGroup, FindsAsAScanThroughAllChanges) {
    std::mt19937 random(3);
    auto const text = [&](unsigned long number) {
        return (random() % 2 ? "Key" : "kEY") + std::to_string(number % 40);
    };
    Items items;
    std::vector<Parameter*> parameters;
    for (unsigned i = 0; i < 40; ++i) {
        parameters.push_back(items.parameter({.id = text(i).c_str()}));
    }
    ValueItemUtil util;
    ParameterValueGroup group("root");
    unsigned long largest = 0;
    for (int step = 0; step < 6000; ++step) {
        auto const count = group.getNumberOfItems();
        auto const id = text(random());
        auto* item = count > 0 ? group.getItem(random() % count) : nullptr;
        bool const shrinking = step / 500 % 3 == 2;
        switch (item ? random() % (shrinking ? 12 : 8) : 0) {
        case 0:
        case 1: group.addItem(value(id.c_str(), "x").release()); break;
        case 2: group.addValue(id.c_str(), "x"); break;
        case 3: util.setParameterItemId(*item, id.c_str()); break;
        case 4: util.assignParameterItem(*item, parameters[random() % parameters.size()]); break;
        case 5: static_cast<ParameterValue&>(*item) = *value(id.c_str(), "y"); break;
        case 6:
            if (random() % 50 == 0) {
                group = ParameterValueGroup(group);
            }
            break;
        default:
            if (auto* found = group.getItem(id.c_str())) {
                std::unique_ptr<Item> const detached(found);
                EXPECT_TRUE(group.removeItem(id.c_str()));
            }
        }
        largest = std::max(largest, group.getNumberOfItems());
        auto const sought = text(random());
        Item const* expected = nullptr;
        for (unsigned long i = group.getNumberOfItems(); i-- > 0;) {
            if (equalIgnoringCase(idOf(*group.getItem(i)), sought)) {
                expected = group.getItem(i);
            }
        }
        ASSERT_EQ(group.getItem(sought.c_str()), expected) << "step " << step;
    }
    EXPECT_GT(largest, 100u);
}

} // namespace
