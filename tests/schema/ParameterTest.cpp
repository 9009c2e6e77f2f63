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

TEST_F(ParameterTest, ADefaultHasToFitTypeAndValidator) {
    struct Row {
        Parameter::ValueType type;
        std::string optional, unbounded; // what optional ones have when none is declared
        std::vector<std::string> fits, misfits;
        std::string kind;
    };
    using P = Parameter;
    std::string const missing = "Optional parameter \"id\" is missing a default value";
    auto const made = [](P::ValueType type, char const* text, bool optional = false, bool unbounded = false) {
        return defaultOf([&] {
            return std::make_unique<Parameter>("id", "id", "d", optional, unbounded, type, text, nullptr,
                                               "STORAGElocation", false);
        });
    };
    for (auto const& [type, optional, unbounded, fits, misfits, kind] : {
             Row{P::BOOLEAN_PARAMETER, "id*=0", "id*=0", {"tRUE", "42"}, {"yes"}, "boolean"},
             Row{P::STRING_PARAMETER, missing, "none", {"100%s"}, {}, ""},
             Row{P::INT_PARAMETER, "id*=0", "id*=0", {" -2147483648"}, {"7 ", "2147483648"}, "signed integer"},
             Row{P::UINT_PARAMETER,
                 missing,
                 "none",
                 {"4294967295"},
                 {"-1", "99999999999999999999"},
                 "unsigned integer"},
             Row{P::DOUBLE_PARAMETER, "id*=0", "id*=0", {"-1.5e3"}, {"1,5", "1e999"}, "double"},
             Row{P::OID_PARAMETER, missing, "none", {"#1-2-3-4 ", ""}, {"1-2-3", "1-2-3-4%s"}, "OID"},
             Row{P::ENUM_PARAMETER, missing, "none", {"anything"}, {}, ""},
         }) {
        EXPECT_EQ(made(type, nullptr, true), optional);
        EXPECT_EQ(made(type, nullptr, true, true), unbounded);
        for (auto const& text : fits) {
            EXPECT_EQ(made(type, text.c_str()), "id*=" + text);
        }
        for (auto const& text : misfits) {
            auto const invalid = "\"" + text + "\" is not a valid ";
            EXPECT_EQ(made(type, text.c_str()), invalid + "default value for parameter \"id\": id: " + invalid + kind);
        }
    }
    EXPECT_EQ(made(P::INT_PARAMETER, "%s::"),
              "\"%s::\" is not a valid default value for parameter \"id\": id: \"%s::\" "
              "is not a valid signed integer\nValue is not properly formatted\n");
}

TEST_F(ParameterTest, ASpecializationTakesWhatItDoesNotChange) {
    ParameterEnumDefinition const levels("levels");
    createItem("count:int");
    auto* base = static_cast<Parameter*>(createItem("Level:enum=low"));
    base->setEnumDefinition(&levels);
    base->addValidatorConfigurationParameterValue("unit", "kb");
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
}

TEST_F(ParameterTest, KeepsTheSettingsOfItsValidator) {
    auto* text = static_cast<Parameter*>(createItem("Text%s"));
    ParameterEnumDefinition const levels("levels");
    EXPECT_EQ(whatOf([&] { text->setEnumDefinition(&levels); }), "\"Text%s\" is not an enumeration parameter");
    text->addValidatorConfigurationParameterValue("Limit", "1");
    text->addValidatorConfigurationParameterValue("unit", "");
    EXPECT_EQ(toText(*text->getValidatorConfiguration()), "Limit?{Limit?=1 unit?=}");
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
    for (char const* good : {"", "/data/db", "a:b", "host::/data", "a::b::c", "a::b::", "host:::", "h::%s"}) {
        EXPECT_EQ(check(location, good), "<passed>") << good;
    }
    for (char const* bad : {"::/data", "host::", "::", ":::"}) {
        EXPECT_EQ(check(location, bad), "Value is not properly formatted") << bad;
    }
    Items items;
    auto const tree = treeOf("{two=::,a,<none>,:: none=<none>,a}", *items.group("g{none?=::}"));
    EXPECT_EQ(check(location, *tree->getValue("two")),
              "Value is not properly formatted\nValue is not properly formatted\n");
    EXPECT_EQ(check(location, *tree->getValue("none")), "Value is not properly formatted\n"); // the default's
}

} // namespace
