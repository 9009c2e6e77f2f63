#include "registry/ConfigurationRegistryLoader.h"
#include "schema/ParameterItemFinder.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"
#include "values/ValueItemUtil.h"
#include "visitors/ConstraintSplitterVisitor.h"
#include "visitors/ParameterMatchingVisitor.h"

#include <configuration/ParameterErrors.h>
#include <configuration/ParameterGroupSpecialization.h>
#include <configuration/ParameterSpecialization.h>
#include <configuration/Value.h>

namespace kivo::test {

using namespace configuration;

namespace {

constexpr auto PARAMETER = ParameterItem::PARAMETER;
constexpr auto GROUP = ParameterItem::PARAMETER_GROUP;

/// A caller's own item: it is neither a Parameter nor a ParameterGroup, whatever it says, and shows walks another item.
struct OwnItem final : ParameterItem {
    OwnItem(char const* id, ItemType type, ParameterItem const* shown = nullptr)
        : ParameterItem(id, id, "Description", true, false), mType(type), mShown(shown) {}
    ItemType getItemType() const override { return mType; }
    bool accept(ParameterVisitor& visitor) const override { return !mShown || mShown->accept(visitor); }

    ItemType mType;
    ParameterItem const* mShown;
};

/// A caller's own group: it shows walks its items, but not itself.
struct OwnGroup final : ParameterGroup {
    OwnGroup(char const* id, GroupType type)
        : ParameterGroup(id, id, "Description", true, ITEMS_NOT_EXCLUSIVE, false, type) {}
    bool accept(ParameterVisitor& visitor) const override {
        for (unsigned long i = 0; i < getNumberOfItems(); ++i) {
            getItem(i)->accept(visitor);
        }
        return true;
    }
};

struct OwnItems : ManagerTest {
    /// Makes an item that the manager owns.
    template <class Item>
    static Item* own(auto... arguments) {
        auto* item = std::make_unique<Item>(arguments...).release();
        manager().addParameterItem(item);
        return item;
    }

    static ParameterGroup* fill(ParameterItem* group, std::vector<ParameterItem*> const& items) {
        for (auto* item : items) {
            static_cast<ParameterGroup*>(group)->addItem(item);
        }
        return static_cast<ParameterGroup*>(group);
    }

    std::string match(ParameterValueGroup& tree) {
        return whatOf([&] {
            ParameterMatchingVisitor matching(Specification("tool", ""), errors, true);
            tree.accept(matching);
        });
    }

    ParameterErrors errors;
};

TEST_F(OwnItems, RegistryFilesCannotReferToThem) {
    own<OwnItem>("p", PARAMETER);
    own<OwnItem>("g", GROUP);
    for (auto const& [element, fault] : {std::pair("ParameterRef id='p'", "Parameter \"p\" was not found"),
                                         {"GroupRef id='g'", "Group\"g\" was not found"}}) {
        auto const group = "<Group id='" + std::string(fault) + "' name='n' description='d'><" + element + "/></Group>";
        auto const file = installation.write("f.crg", "<ConfigurationRegistry><Groups>" + group +
                                                          "</Groups></ConfigurationRegistry>");
        EXPECT_EQ(whatOf([&] { ConfigurationRegistryLoader().loadFile(file.c_str()); }), fault);
    }
}

TEST_F(OwnItems, LookUpsFindWhatAWalkShows) {
    for (int const padding : {0, 40}) { // short lists are scanned, long ones have an index
        for (bool const hasGroups : {false, true}) {
            manager().reset();
            auto* const root = fill(createItem("tool{}"), {own<OwnItem>("nothing", PARAMETER),
                                                           own<OwnItem>("other", PARAMETER, createItem("shown")),
                                                           own<OwnItem>("hidden", PARAMETER), createItem("hidden")});
            if (hasGroups) {
                auto* const in = fill(own<OwnGroup>("in", ParameterGroup::CONTAINER),
                                      {createItem("below"), own<OwnItem>("late", PARAMETER)});
                auto* const con = fill(own<OwnGroup>("con", ParameterGroup::CONSTRAINT), {createItem("constrained")});
                fill(root, {own<OwnItem>("group", GROUP, in), con});
            }
            for (int i = 0; i < padding; ++i) {
                root->addItem(createItem(std::to_string(i)));
            }
            for (std::string const id : {"nothing", "other", "shown", "hidden", "group", "in", "below", "late", "con",
                                         "constrained", "tool"}) {
                SCOPED_TRACE(id + (hasGroups ? " beside groups, " : ", ") + std::to_string(padding));
                ParameterItemFinder finder(id.c_str());
                root->accept(finder);
                auto const* const shown = finder.getFound();
                EXPECT_EQ(root->getItem(id.c_str(), true), shown);
                auto const tree = treeOf("{tool{" + id + "=1}}");
                errors.clear();
                match(*tree);
                bool const isParameter = shown && shown->getItemType() == PARAMETER;
                auto const& bound = *static_cast<ParameterValueGroup*>(tree->getItem(0ul))->getItem(0ul);
                EXPECT_EQ(bound.getParameterItem(), isParameter ? shown : nullptr);
                EXPECT_EQ(errors.getNumberOfErrors(), isParameter ? 0u : 1u);
                ConstraintSplitterVisitor splitter(errors);
                tree->accept(splitter);
            }
        }
    }
}

TEST_F(OwnItems, AreNotTakenForWhatTheySay) {
    own<OwnItem>("said", PARAMETER);
    own<OwnItem>("saidGroup", GROUP);
    fill(createItem("tool{}"), {own<OwnItem>("section", GROUP), own<OwnItem>("setting", PARAMETER)});
    EXPECT_EQ(whatOf([] { ParameterSpecialization::Create("said", nullptr, true, false, "", false); }),
              "Parameter to specialize \"said\" was not found");
    EXPECT_EQ(whatOf([] { ParameterGroupSpecialization::CreateGroup("saidGroup"); }),
              "Group to specialize \"saidGroup\" was not found");
    EXPECT_EQ(whatOf([] { Specification("saidGroup", "").getParameterGroup(); }),
              "\"saidGroup\" is not a parameter group");
    EXPECT_EQ(match(*treeOf("{tool{section{a=1} setting{}}}")), "\"setting\" must be a parameter group");
    EXPECT_EQ(composeMessage(errors), "\"section\" is not a parameter group\n"
                                      "Unnamed group cannot contain Parameter \"a\"\n"
                                      "\"setting\" is not a parameter group");
}

TEST_F(OwnItems, AreBoundByTheirTypeOnly) {
    OwnItem const item("own", PARAMETER);
    OwnItem const groupItem("own", GROUP);
    auto const group = treeOf("id{id=7,<none>}");
    auto& value = *group->getValue("id");
    ValueItemUtil util;
    EXPECT_EQ(whatOf([&] { util.assignParameterItem(value, &groupItem); }), "\"own\" must be a parameter");
    EXPECT_EQ(whatOf([&] { util.assignParameterItem(*group, &item); }), "\"own\" must be a parameter group");
    util.assignParameterItem(value, &item);
    util.assignParameterItem(*group, &groupItem);
    Items items;
    ParameterValue assigned(items.parameter("own:int"), "8");
    assigned = value;
    for (ParameterValue const& each : {value, ParameterValue(value), assigned}) {
        EXPECT_TRUE(each.getParameterItem() == &item && !each.getParameter());
        EXPECT_EQ(whatOf([&] { Value(&each, true).asInteger(); }), contractText("mParameter != 0"));
        EXPECT_EQ(each.getIntValue(0) + each.getIntValue(1), 7);
    }
    EXPECT_TRUE(group->getParameterItem() == &groupItem && !group->getParameterGroup());
}

} // namespace

} // namespace kivo::test
