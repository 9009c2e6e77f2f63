#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroupSpecialization.h>
#include <configuration/ParameterSpecialization.h>

#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Schema.h"
#include "support/ValueTree.h"

using namespace kivo::configuration;
using namespace kivo::test;
using Special = ParameterGroupSpecialization;

namespace {

class SpecializationTest : public ManagerTest {};

TEST_F(SpecializationTest, OfAParameterTakesWhatItDoesNotChange) {
    ParameterEnumDefinition const labels("labels");
    auto* base = createParameter({.id = "Level",
                                  .name = "LevelName",
                                  .optional = true,
                                  .type = Parameter::ENUM_PARAMETER,
                                  .defaultValue = "low",
                                  .valueName = "LABEL",
                                  .validator = "storageLocation",
                                  .hidden = true});
    base->setEnumDefinition(&labels);
    base->addValidatorConfigurationParameterValue("unit", "kb");

    auto const* same = ParameterSpecialization::Create("LEVEL", nullptr, true, false, nullptr, false);
    EXPECT_EQ(toText(*same->getDefaultValue()), "Level*=low");
    EXPECT_EQ(same->getDefaultValue()->getParameter(), same);
    EXPECT_STREQ(same->getDescription(), "Description");
    EXPECT_STREQ(same->getName(), "LevelName");
    EXPECT_STREQ(same->getValueName(), "LABEL");
    EXPECT_EQ(same->getEnumDefinition(), &labels);
    EXPECT_EQ(same->getValidator(), base->getValidator());
    EXPECT_EQ(same->getValidatorConfiguration(), nullptr);
    EXPECT_TRUE(same->isSpecialized() && same->isOptional() && !same->isUnbounded() && !same->isHidden());

    auto const* other = ParameterSpecialization::Create("level", "Other", false, true, "high", true);
    EXPECT_EQ(toText(*other->getDefaultValue()), "Level*=high");
    EXPECT_STREQ(other->getDescription(), "Other");
    EXPECT_TRUE(other->isUnbounded() && other->isHidden() && !other->isOptional());
    EXPECT_EQ(manager().getParameterItem("level"), base);
}

TEST_F(SpecializationTest, OfAParameterIsCheckedAsAnyOther) {
    createParameter({.id = "count", .type = Parameter::INT_PARAMETER});
    createParameter({.id = "text"});
    struct Row {
        char const *id, *description, *defaultValue;
        std::string text;
    };
    for (auto const& row : {Row{"none%s", "x", nullptr, "Parameter to specialize \"none%s\" was not found"},
                            Row{"count", "", "x", contractText("description && strlen(description) > 0")},
                            Row{"count", "x", "x", "\"x\" is not a valid default value for parameter \"count\""},
                            Row{"count", "x", nullptr, "<nothing>"}, // an optional number: the implicit default
                            Row{"text", "x", nullptr, "Optional parameter \"text\" is missing a default value"}}) {
        EXPECT_EQ(whatOf([&] {
                      ParameterSpecialization::Create(row.id, row.description, true, false, row.defaultValue, false);
                  }),
                  row.text);
    }
}

TEST_F(SpecializationTest, OfAGroupKeepsTheRole) {
    auto* inner = createParameter({.id = "inner"});
    createGroup({.id = "Group", .name = "G"}, {inner});
    createMutuallyExclusive({.id = "Choice", .name = "C"}, {inner});
    createContainer({.id = "Box", .name = "B"}, {inner});
    struct Row {
        Special const* made;
        std::string text;
    };
    for (auto const& [made, text] :
         {Row{Special::CreateGroup("group"), "Constraint optional Group: Description"},
          Row{Special::CreateMutuallyExclusive("choice", nullptr, true),
              "Constraint exclusive optional Choice: Description"},
          Row{Special::CreateMutuallyExclusive("Choice", "Other", false), "Constraint exclusive Choice: Other"},
          Row{Special::CreateContainer("box", nullptr, false, true), "Container unbounded Box: Description"},
          Row{Special::CreateContainer("Box", "Other", true, false), "Container optional Box: Other"}}) {
        EXPECT_EQ(describe(*made) + " " + made->getName() + ": " + made->getDescription(), text);
        EXPECT_TRUE(made->isSpecialized());
        EXPECT_EQ(made->getNumberOfItems(), 0u);
        auto const* base = manager().getParameterItem(made->getId());
        EXPECT_EQ(static_cast<ParameterGroup const*>(base)->getNumberOfItems(), 1u);
    }
}

TEST_F(SpecializationTest, OfAGroupNeedsABaseOfItsRole) {
    createGroup({.id = "group"});
    createMutuallyExclusive({.id = "choice"});
    createContainer({.id = "box"});
    struct Kind {
        char const *word, *ownId, *role;
        void (*create)(char const* id);
    };
    for (auto const& kind : {Kind{"Group", "group", "a group constraint", [](auto id) { Special::CreateGroup(id); }},
                             Kind{"Mutually Exclusive", "choice", "a mutually exclusive constraint",
                                  [](auto id) { Special::CreateMutuallyExclusive(id, nullptr, true); }},
                             Kind{"Container", "box", "a container",
                                  [](auto id) { Special::CreateContainer(id, nullptr, true, true); }}}) {
        for (std::string const id : {"group", "choice", "box", "none%s"}) {
            auto const reason = id == "none%s" ? "was not found" : std::string("is not ") + kind.role;
            EXPECT_EQ(whatOf([&] { kind.create(id.c_str()); }),
                      id == kind.ownId ? "<nothing>" : kind.word + (" to specialize \"" + id) + "\" " + reason);
        }
    }
}

} // namespace
