#include <configuration/ConfigurationParameterException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroupSpecialization.h>
#include <configuration/ParameterSpecialization.h>
#include <configuration/ParameterValidator.h>

#include "support/CaseFile.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/WalkLog.h"

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

class FactoriesTest : public ManagerTest {};

/// A parameter's default, or a group's role, name, description and walk.
std::string describe(ParameterItem const& made) {
    if (auto const* parameter = dynamic_cast<Parameter const*>(&made)) {
        auto const* value = parameter->getDefaultValue();
        return value ? toText(*value) : "none";
    }
    auto const& group = static_cast<ParameterGroup const&>(made);
    return std::string(group.getItemTypeName()) + (group.itemsAreExclusive() ? " exclusive" : "") +
           (group.isOptional() ? " optional " : " ") + (group.isUnbounded() ? "unbounded " : "") + group.getName() +
           ", " + group.getDescription() + ": " + walkLog(group);
}

using Make = std::function<ParameterItem const*()>;

/// What is made, or the exception with the faults that it lists, as a line.
std::string outcomeOf(Make const& make) {
    try {
        return describe(*make()) + "\n";
    } catch (ConfigurationParameterException const& thrown) {
        return thrown.what() + (": " + composeMessage(thrown.getErrors())) + "\n";
    } catch (std::exception const& thrown) {
        return thrown.what() + std::string("\n");
    }
}

TEST_F(FactoriesTest, MakeWhatTheirArgumentsAllow) {
    using P = Parameter;
    using G = ParameterGroup;
    using S = ParameterGroupSpecialization;
    for (auto const* item : {"taken", "bare", "group{}", "Level:enum=low", "count:int", "g/n(a)", "c/n{b}", "x/n[d]"}) {
        createItem(item);
    }
    checkCases("schema/factories.txt", [](FileCase const& row) {
        auto const text = [&](char const* field) {
            return row.fields.contains(field) ? row.fields.at(field).c_str() : nullptr;
        };
        auto const* id = text("id");
        auto const* name = text("name");
        auto const* about = text("description");
        auto const* check = text("validator");
        std::map<std::string, Make> const factories{
            {"Parameter",
             [=] {
                 return P::Create(id, name, about, true, false, P::STRING_PARAMETER, nullptr, nullptr, check, false);
             }},
            {"Specialization",
             [&] { return ParameterSpecialization::Create(id, about, true, false, text("default"), false); }},
            {"Group", [=] { return G::CreateGroup(id, name, about); }},
            {"Container", [=] { return G::CreateContainer(id, name, about, true, true); }},
            {"MutuallyExclusive", [=] { return G::CreateMutuallyExclusive(id, name, about, true); }},
            {"GroupSpecialization", [=] { return S::CreateGroup(id); }},
            {"ContainerSpecialization", [=] { return S::CreateContainer(id, about, true, true); }},
            {"MutuallyExclusiveSpecialization", [=] { return S::CreateMutuallyExclusive(id, about, true); }},
        };
        return outcomeOf(factories.at(row["case"]));
    });
}

TEST_F(FactoriesTest, ADefaultHasToFitTypeAndValidator) {
    checkCases("schema/defaults.txt", [](FileCase const& row) {
        Items items;
        return outcomeOf([&] { return items.parameter(unescaped(row["case"])); });
    });
}

// What a specialization takes besides the texts: the labels, but no settings.
TEST_F(FactoriesTest, ASpecializationHasTheLabelsButNoSettings) {
    ParameterEnumDefinition const levels("levels");
    auto* base = static_cast<Parameter*>(createItem("Level:enum=low"));
    base->setEnumDefinition(&levels);
    base->addValidatorConfigurationParameterValue("Unit", "kb");
    base->addValidatorConfigurationParameterValue("limit", "");
    auto const* special = ParameterSpecialization::Create("level", nullptr, false, false, nullptr, false);
    EXPECT_EQ(special->getEnumDefinition(), &levels);
    EXPECT_EQ(special->getValidatorConfiguration(), nullptr);
    EXPECT_EQ(special->getDefaultValue()->getParameter(), special);
    EXPECT_EQ(toText(*base->getValidatorConfiguration()), "Unit?{Unit?=kb limit?=}");
    createItem("group{}"); // an id is unique among parameters only
    auto* made = Parameter::Create("group", "%s", "d", false, false, Parameter::INT_PARAMETER, "1", "", nullptr, true);
    EXPECT_TRUE(made->isHidden() && !made->getValueName());
    EXPECT_EQ(whatOf([&] { made->setEnumDefinition(&levels); }), "\"%s\" is not an enumeration parameter");
}

TEST_F(FactoriesTest, ABoundThatIsRefusedChangesNothing) {
    Items items;
    auto* count = items.parameter("count/%s:int=5");
    count->setMinimum("1");
    count->setMaximum("5");
    EXPECT_EQ(whatOf([&] { count->setMinimum(nullptr); }), contractText("minimum != 0"));
    EXPECT_EQ(whatOf([&] { count->setMaximum(nullptr); }), contractText("maximum != 0"));
    std::string const faults[] = {
        outcomeOf([&] { return count->setMinimum("6"), count; }),
        outcomeOf([&] { return count->setMaximum("4"), count; }),
        outcomeOf([&] { return count->setMaximum("5x"), count; }),
    };
    EXPECT_EQ(faults[0], "\"6\" is not a valid minimum for parameter \"%s\": it is greater than the maximum \"5\": "
                         "%s: \"6\" is greater than the maximum \"5\"\n");
    EXPECT_EQ(faults[1], "\"5\" is not a valid default value for parameter \"%s\": it is greater than the maximum "
                         "\"4\": %s: \"5\" is greater than the maximum \"4\"\n");
    EXPECT_EQ(faults[2], "\"5x\" is not a valid maximum for parameter \"%s\": %s: \"5x\" is not a valid signed "
                         "integer\n");
    count->addValidatorConfigurationParameterValue("unit", "kb");
    ParameterSpecialization const special(count, nullptr, true, false, "2", false);
    EXPECT_EQ(std::string(special.getMinimum()) + special.getMaximum() + count->getMinimum(), "151");
    EXPECT_EQ(special.getValidatorConfiguration(), nullptr);
}

/// A validator without a check of its own.
struct Named final : ParameterValidator {
    using ParameterValidator::ParameterValidator;
    using ParameterValidator::validate;
    char* validate(char const*) const override { return nullptr; }
};

TEST_F(FactoriesTest, ValidatorsCheckEveryTextOfAValue) {
    EXPECT_EQ(whatOf([] { Named const made(""); }), contractText("name != 0 && strlen(name) > 0"));
    Items items;
    auto const tree = treeOf("{two=::,a,<none>,:: none=<none>,a}", *items.group("g{none?=::}"));
    for (auto const& [id, faults] : {std::pair("two", 2), {"none", 1}}) { // the default's
        std::unique_ptr<char[]> const message(manager().getValidator("storageLocation")->validate(*tree->getValue(id)));
        std::string const fault = "Value is not properly formatted\n";
        EXPECT_STREQ(message.get(), (faults == 2 ? fault + fault : fault).c_str());
    }
}

} // namespace
