#include <configuration/ConfigurationException.h>

#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Schema.h"
#include "support/WalkLog.h"

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

class ParameterGroupTest : public ManagerTest {};

/// A factory and the roles that it makes: without and with all that it takes.
struct Kind {
    std::string word, plainRole, fullRole;
    ParameterGroup* (*create)(GroupFields const& fields);
};
Kind const KINDS[] = {
    {"Group", "Constraint optional", "Constraint optional", [](auto& fields) { return createGroup(fields); }},
    {"Container", "Container", "Container optional unbounded", [](auto& fields) { return createContainer(fields); }},
    {"Mutually Exclusive", "Constraint exclusive", "Constraint exclusive optional",
     [](auto& fields) { return createMutuallyExclusive(fields); }},
};

TEST_F(ParameterGroupTest, FactoriesMakeTheRoles) {
    for (auto const& kind : KINDS) {
        auto const* plain = kind.create({.id = "plain"});
        EXPECT_EQ(describe(*plain), kind.plainRole);
        EXPECT_EQ(describe(*kind.create({.id = "full", .optional = true, .unbounded = true})), kind.fullRole);
        EXPECT_EQ(plain->getGroupType(),
                  kind.word == "Container" ? ParameterGroup::CONTAINER : ParameterGroup::CONSTRAINT);
        EXPECT_FALSE(plain->isSpecialized());
        EXPECT_EQ(manager().getParameterItem("PLAIN", ParameterItem::PARAMETER_GROUP), plain);

        bool const needsDescription = kind.word != "Mutually Exclusive";
        EXPECT_EQ(whatOf([&] { kind.create({.id = "bare", .description = nullptr}); }),
                  needsDescription ? contractText("description && strlen(description) > 0") : "<nothing>");
        auto const* bare = manager().getParameterItem("bare");
        EXPECT_EQ(bare == nullptr, needsDescription); // what was refused is not registered
        EXPECT_STREQ(bare ? bare->getDescription() : " ", " ");
        manager().reset();
    }
}

TEST_F(ParameterGroupTest, IdsAreUniqueAmongGroupsOnly) {
    auto const lookUp = [] { return whatOf<ConfigurationException>([] { manager().getParameterItem("shared"); }); };
    for (auto const& first : KINDS) {
        auto const* registered = first.create({.id = "id"});
        for (auto const& second : KINDS) {
            EXPECT_EQ(whatOf<ConfigurationException>([&] { second.create({.id = "ID", .description = ""}); }),
                      second.word + " id \"ID\" is not unique");
        }
        EXPECT_EQ(manager().getParameterItem("id"), registered);

        createParameter({.id = "shared"});
        EXPECT_EQ(lookUp(), "<nothing>");
        first.create({.id = "Shared"});
        EXPECT_EQ(lookUp(), "Duplicate item \"shared\"");
        createParameter({.id = "ID"}); // nor do parameters mind a group
        EXPECT_EQ(whatOf([] { createParameter({.id = "id"}); }), "Parameter id \"id\" is not unique");
        manager().reset();
    }
}

TEST_F(ParameterGroupTest, FindsTheFirstOfAnIdDirectlyOrBelow) {
    Items items;
    auto* a = items.parameter({.id = "a"});
    auto* deep = items.parameter({.id = "deep"});
    auto* twin = items.parameter({.id = "Twin"});
    auto* inner =
        items.group({.id = "inner"}, {items.parameter({.id = "inner"}), items.group({.id = "low"}, {deep, twin})});
    auto* laterTwin = items.parameter({.id = "tWIN"});
    auto* root = items.group({.id = "root"}, {a, inner, laterTwin, a});
    struct Row {
        char const* id;
        ParameterItem *direct, *recursive;
    };
    for (auto const& row :
         {Row{"A", a, a}, Row{"inner", inner, inner}, Row{"DEEP", nullptr, deep}, Row{"twin", laterTwin, twin},
          Row{"Root", nullptr, root}, Row{"none", nullptr, nullptr}, Row{"", nullptr, nullptr}}) {
        SCOPED_TRACE(row.id);
        EXPECT_EQ(root->getItem(row.id, false), row.direct);
        EXPECT_EQ(root->getItem(row.id, true), row.recursive);
    }

    EXPECT_EQ(root->removeItem("deep"), nullptr);
    EXPECT_EQ(root->removeItem("INNER"), inner);
    EXPECT_EQ(walkLog(*root), "<root a | tWIN | a >root");
    EXPECT_EQ(root->removeItem("a"), a);
    EXPECT_EQ(walkLog(*root), "<root tWIN | a >root");
    EXPECT_EQ(root->getItem(1), a);
}

} // namespace
