#include <configuration/ConfigurationParameterException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterSpecialization.h>
#include <configuration/ParameterValidator.h>

#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

class ParameterTest : public ManagerTest {};

/// The default, bound and marked as one ("id*=0"), "none", or the exception with the faults that it lists.
std::string defaultOf(auto const& make) {
    try {
        auto const parameter = make();
        auto const* value = parameter->getDefaultValue();
        return value ? toText(*value) : "none";
    } catch (ConfigurationParameterException const& thrown) {
        return thrown.what() + (": " + composeMessage(thrown.getErrors()));
    } catch (std::exception const& thrown) {
        return thrown.what();
    }
}

TEST_F(ParameterTest, CreateChecksItsArgumentsInOrder) {
    auto const create = [](char const* id, char const* name, char const* description, char const* validator) {
        return whatOf([&] {
            Parameter::Create(id, name, description, true, false, Parameter::STRING_PARAMETER, nullptr, nullptr,
                              validator, false);
        });
    };
    createItem("taken");
    EXPECT_EQ(create(nullptr, "", "", "x"), contractText("id != 0"));
    EXPECT_EQ(create("TAKEN", "", "", "x"), "Parameter id \"TAKEN\" is not unique");
    EXPECT_EQ(create("id", "", "", "x"), contractText("name && strlen(name) > 0"));
    EXPECT_EQ(create("id", "Name", "", "x"), contractText("description && strlen(description) > 0"));
    EXPECT_EQ(create("id", "Name", "d", "none%s"), "Validator \"none%s\" was not found");
    EXPECT_EQ(create("id", "Name", "d", nullptr), "Optional parameter \"Name\" is missing a default value");
    EXPECT_EQ(manager().getParameterItem("id"), nullptr); // nothing was registered
    createItem("group{}");
    auto const* made = // an id is unique among parameters only
        Parameter::Create("group", "n", "d", false, false, Parameter::INT_PARAMETER, "1", "", nullptr, true);
    EXPECT_TRUE(made->isHidden() && !made->getValueName());
    EXPECT_EQ(create("GROUP", "", "", nullptr), "Parameter id \"GROUP\" is not unique");
}

#define INVALID(text, noun)                                                                                            \
    "\"" text "\" is not a valid default value for parameter \"id\": id: \"" text "\" is not a valid " noun
#define MISSING "Optional parameter \"id\" is missing a default value"

TEST_F(ParameterTest, ADefaultHasToFitTypeAndValidator) {
    Items items;
    // clang-format off
    for (auto const& [declared, outcome] : std::vector<std::pair<char const*, char const*>>{
        {"id:bool?", "id*=0"}, {"id:bool?*", "id*=0"}, {"id:bool=tRUE", "id*=tRUE"}, {"id:bool=42", "id*=42"},
        {"id:bool=yes", INVALID("yes", "boolean")},
        {"id:string?", MISSING}, {"id:string?*", "none"}, {"id:string=100%s", "id*=100%s"},
        {"id:int?", "id*=0"}, {"id:int?*", "id*=0"}, {"id:int=\t-2147483648", "id*=\t-2147483648"},
        {"id:int=7\t", INVALID("7\t", "signed integer")}, {"id:int=2147483648", INVALID("2147483648", "signed integer")},
        {"id:uint?", MISSING}, {"id:uint?*", "none"}, {"id:uint=4294967295", "id*=4294967295"},
        {"id:uint=-1", INVALID("-1", "unsigned integer")},
        {"id:uint=99999999999999999999", INVALID("99999999999999999999", "unsigned integer")},
        {"id:double?", "id*=0"}, {"id:double?*", "id*=0"}, {"id:double=-1.5e3", "id*=-1.5e3"},
        {"id:double=1,5", INVALID("1,5", "double")}, {"id:double=1e999", INVALID("1e999", "double")},
        {"id:oid?", MISSING}, {"id:oid?*", "none"}, {"id:oid=#1-2-3-4\t", "id*=#1-2-3-4\t"}, {"id:oid=", "id*="},
        {"id:oid=1-2-3", INVALID("1-2-3", "OID")}, {"id:oid=1-2-3-4%s", INVALID("1-2-3-4%s", "OID")},
        {"id:enum?", MISSING}, {"id:enum?*", "none"}, {"id:enum=anything", "id*=anything"},
        {"id:int!STORAGElocation=%s::", INVALID("%s::", "signed integer") "\nValue is not properly formatted\n"}}) {
        EXPECT_EQ(defaultOf([&, text = declared] { return items.parameter(text); }), outcome) << declared;
    }
    // clang-format on
}

TEST_F(ParameterTest, ASpecializationTakesWhatItDoesNotChangeButNoSettings) {
    ParameterEnumDefinition const levels("levels");
    createItem("count/Count%s:int");
    auto* base = static_cast<Parameter*>(createItem("Level:enum=low"));
    base->setEnumDefinition(&levels);
    base->addValidatorConfigurationParameterValue("Unit", "kb");
    base->addValidatorConfigurationParameterValue("limit", "");
    auto const optional = [](char const* id, char const* description, char const* defaultValue) {
        return defaultOf(
            [&] { return ParameterSpecialization::Create(id, description, true, false, defaultValue, false); });
    };
    EXPECT_EQ(optional("LEVEL", nullptr, nullptr), "Level*=low");
    EXPECT_EQ(optional("level", "Other", "high"), "Level*=high");
    EXPECT_EQ(optional("count", "Other", nullptr), "count*=0"); // the implicit default
    EXPECT_EQ(optional("none%s", nullptr, nullptr), "Parameter to specialize \"none%s\" was not found");
    EXPECT_EQ(optional("count", "", "x"), contractText("description && strlen(description) > 0"));
    auto const* special = ParameterSpecialization::Create("level", nullptr, false, false, nullptr, false);
    EXPECT_EQ(special->getEnumDefinition(), &levels);
    EXPECT_EQ(special->getValidatorConfiguration(), nullptr);
    EXPECT_EQ(special->getDefaultValue()->getParameter(), special);
    EXPECT_EQ(toText(*base->getValidatorConfiguration()), "Unit?{Unit?=kb limit?=}");
    auto* count = static_cast<Parameter*>(manager().getParameterItem("count"));
    EXPECT_EQ(whatOf([&] { count->setEnumDefinition(&levels); }), "\"Count%s\" is not an enumeration parameter");
}

/// A validator without a check of its own.
struct Named final : ParameterValidator {
    using ParameterValidator::ParameterValidator;
    using ParameterValidator::validate;
    char* validate(char const*) const override { return nullptr; }
};

TEST_F(ParameterTest, ValidatorsCheckEveryTextOfAValue) {
    EXPECT_EQ(whatOf([] { Named const made(""); }), contractText("name != 0 && strlen(name) > 0"));
    auto const check = [](ParameterValidator const& validator, auto const& checked) -> std::string {
        std::unique_ptr<char[]> const message(validator.validate(checked));
        return message ? message.get() : "<passed>";
    };
    auto const& location = *manager().getValidator("storageLocation"); // looks at the first separator
    for (char const* good : {"", "a:b", "host::/data", "a::b::", "host:::"}) {
        EXPECT_EQ(check(location, good), "<passed>") << good;
    }
    for (char const* bad : {"::/data", "host::", ":::"}) {
        EXPECT_EQ(check(location, bad), "Value is not properly formatted") << bad;
    }
    Items items;
    auto const tree = treeOf("{two=::,a,<none>,:: none=<none>,a}", *items.group("g{none?=::}"));
    EXPECT_EQ(check(location, *tree->getValue("two")),
              "Value is not properly formatted\nValue is not properly formatted\n");
    EXPECT_EQ(check(location, *tree->getValue("none")), "Value is not properly formatted\n"); // the default's
}

} // namespace
