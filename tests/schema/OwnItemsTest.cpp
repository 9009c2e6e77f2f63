#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"
#include "visitors/ConstraintSplitterVisitor.h"
#include "visitors/ParameterMatchingVisitor.h"

#include <configuration/Memory.h>
#include <configuration/ParameterErrors.h>
#include <configuration/ParameterGroupSpecialization.h>
#include <configuration/ParameterSpecialization.h>
#include <configuration/ParameterVisitor.h>

namespace kivo::test {

using namespace configuration;

namespace {

/// A caller's own item: it is neither a Parameter nor a ParameterGroup, whatever it says, and shows walks another item.
class OwnItem final : public ParameterItem {
public:
    OwnItem(char const* id, ItemType type, ParameterItem const* shown)
        : ParameterItem(id, id, "Description", true, false), mType(type), mShown(shown) {}

    ItemType getItemType() const override { return mType; }
    bool accept(ParameterVisitor& visitor) const override { return !mShown || mShown->accept(visitor); }

private:
    ItemType mType;
    ParameterItem const* mShown;
};

/// A caller's own group: it shows walks its items, but not itself.
class OwnGroup final : public ParameterGroup {
public:
    OwnGroup(char const* id, GroupType type)
        : ParameterGroup(id, id, "Description", true, ITEMS_NOT_EXCLUSIVE, false, type) {}

    bool accept(ParameterVisitor& visitor) const override {
        for (unsigned long i = 0; i < getNumberOfItems(); ++i) {
            getItem(i)->accept(visitor);
        }
        return true;
    }
};

/// The first item of an id that a walk shows, found without the library's own searches.
ParameterItem const* firstOfWalk(ParameterGroup const& group, std::string const& id) {
    struct Finder final : ParameterVisitor {
        bool visitGroupStart(ParameterGroup const& shown) override { return see(shown); }
        bool visitParameter(Parameter const& shown) override { return see(shown); }
        bool see(ParameterItem const& item) {
            found = !found && item.getId() == id ? &item : found;
            return true;
        }
        std::string id;
        ParameterItem const* found = nullptr;
    } finder;
    finder.id = id;
    group.accept(finder);
    return finder.found;
}

struct OwnItems : ManagerTest {
    template <class Item>
    Item* registered(Item* item) {
        manager().addParameterItem(item);
        return item;
    }
    OwnItem* own(char const* id, ParameterItem::ItemType type, ParameterItem const* shown) {
        return registered(new OwnItem(id, type, shown));
    }
};

ParameterGroup* fill(ParameterGroup* group, std::vector<ParameterItem*> const& items) {
    for (auto* item : items) {
        group->addItem(item);
    }
    return group;
}

constexpr auto PARAMETER = ParameterItem::PARAMETER;
constexpr auto GROUP = ParameterItem::PARAMETER_GROUP;

TEST_F(OwnItems, LookUpsFindWhatAWalkShows) {
    auto* in = new OwnGroup("in", ParameterGroup::CONTAINER);
    auto* con = new OwnGroup("con", ParameterGroup::CONSTRAINT);
    fill(registered(in), {createItem("below"), own("late", PARAMETER, nullptr)});
    for (int i = 0; i < 20; ++i) {
        in->addItem(createItem("in" + std::to_string(i)));
    }
    fill(registered(con), {createItem("constrained")});
    for (int const padding : {0, 40}) {
        auto const suffix = std::to_string(padding);
        auto* shown = createItem("shown" + suffix);
        auto* hidden = createItem("hidden" + suffix);
        std::vector<ParameterItem*> const own_items = {own("nothing", PARAMETER, nullptr),
                                                       own("other", PARAMETER, shown),
                                                       own(hidden->getId(), PARAMETER, nullptr), hidden};
        for (bool const hasGroups : {false, true}) {
            auto const tool = "tool" + suffix + (hasGroups ? "groups" : "");
            auto* root = fill(static_cast<ParameterGroup*>(createItem(tool + "{}")), own_items);
            fill(root,
                 hasGroups ? std::vector<ParameterItem*>{own("group", GROUP, in), con} : std::vector<ParameterItem*>{});
            for (int i = 0; i < padding; ++i) {
                root->addItem(createItem(tool + std::to_string(i)));
            }
            Specification const specification(tool.c_str(), "");
            for (std::string const id : {"nothing", "other", shown->getId(), hidden->getId(), "group", "in", "below",
                                         "late", "con", "constrained", tool.c_str()}) {
                SCOPED_TRACE(tool + " " + id);
                auto const* const expected = firstOfWalk(*root, id);
                for (int question = 0; question < 4; ++question) {
                    EXPECT_EQ(root->getItem(id.c_str(), true), expected);
                }
                ParameterErrors errors;
                auto const tree = treeOf("{" + tool + "{" + id + "=1}}");
                auto const& given = *static_cast<ParameterValueGroup*>(tree->getItem(0ul))->getValue(id.c_str());
                whatOf([&] {
                    ParameterMatchingVisitor matching(specification, errors, true);
                    tree->accept(matching);
                });
                bool const isParameter = expected && expected->getItemType() == PARAMETER;
                EXPECT_EQ(given.getParameterItem(), isParameter ? expected : nullptr);
                EXPECT_EQ(errors.getNumberOfErrors(), isParameter ? 0u : 1u);
                ConstraintSplitterVisitor splitter(errors);
                tree->accept(splitter);
            }
        }
        auto* const changing = fill(static_cast<ParameterGroup*>(createItem("changing" + suffix + "{}")), {in});
        auto* const added = createItem("added" + suffix);
        for (int question = 0; question < 4; ++question) {
            EXPECT_EQ(changing->getItem(added->getId(), true), nullptr);
        }
        in->addItem(added); // nothing that was remembered of walks may hide it
        EXPECT_EQ(changing->getItem(added->getId(), true), added);
    }
}

TEST_F(OwnItems, AreNotTakenForWhatTheySay) {
    own("said", PARAMETER, nullptr);
    own("saidGroup", GROUP, nullptr);
    fill(static_cast<ParameterGroup*>(createItem("tool{}")),
         {own("section", GROUP, nullptr), own("setting", PARAMETER, nullptr)});
    EXPECT_EQ(whatOf([] { ParameterSpecialization::Create("said", nullptr, true, false, "", false); }),
              "Parameter to specialize \"said\" was not found");
    EXPECT_EQ(whatOf([] { ParameterGroupSpecialization::CreateGroup("saidGroup"); }),
              "Group to specialize \"saidGroup\" was not found");
    EXPECT_EQ(whatOf([] { Specification("saidGroup", "").getParameterGroup(); }),
              "\"saidGroup\" is not a parameter group");
    ParameterErrors errors;
    auto const tree = treeOf("{tool{section{a=1} setting{}}}");
    EXPECT_EQ(whatOf([&] {
                  ParameterMatchingVisitor matching(Specification("tool", ""), errors, true);
                  tree->accept(matching);
              }),
              "\"setting\" must be a parameter group");
    EXPECT_EQ(composeMessage(errors), "\"section\" is not a parameter group\n"
                                      "Unnamed group cannot contain Parameter \"a\"\n"
                                      "\"setting\" is not a parameter group");
}

} // namespace

} // namespace kivo::test
