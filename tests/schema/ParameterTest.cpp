#include <configuration/ConfigurationParameterException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterSpecialization.h>

#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Schema.h"
#include "support/ValueTree.h"

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

class ParameterTest : public ManagerTest {};

/// The default, bound and marked as one ("id*=0"), "none", or the exception with the faults that it lists.
std::string defaultOf(auto const& make) {
    try {
        auto const* value = make()->getDefaultValue();
        return value ? toText(*value) : "none";
    } catch (ConfigurationParameterException const& thrown) {
        return thrown.what() + (": " + composeMessage(thrown.getErrors()));
    } catch (std::exception const& thrown) {
        return thrown.what();
    }
}

TEST_F(ParameterTest, CreateChecksItsArgumentsInOrder) {
    auto const create = [](ParameterFields const& fields) { return whatOf([&] { createParameter(fields); }); };
    createParameter({.id = "taken"});
    EXPECT_EQ(create({nullptr, ""}), contractText("id != 0"));
    EXPECT_EQ(create({"TAKEN", ""}), "Parameter id \"TAKEN\" is not unique");
    EXPECT_EQ(create({"id", "", ""}), contractText("name && strlen(name) > 0"));
    EXPECT_EQ(create({.description = "", .validator = "x"}), contractText("description && strlen(description) > 0"));
    EXPECT_EQ(create({.optional = true, .validator = "none%s"}), "Validator \"none%s\" was not found");
    EXPECT_EQ(create({.name = "Name", .optional = true}), "Optional parameter \"Name\" is missing a default value");
    EXPECT_EQ(manager().getParameterItem("id"), nullptr); // nothing was registered
    createGroup({.id = "id"});
    EXPECT_EQ(create({.id = "id"}), "<nothing>"); // unique among parameters only
}

TEST_F(ParameterTest, ADefaultHasToFitTypeAndValidator) {
    struct Row {
        Parameter::ValueType type;
        bool isZero; // what an optional one has when none is declared
        std::string kind;
        std::vector<std::string> fits, misfits;
    };
    auto const made = [](ParameterFields const& fields) {
        Items items;
        return defaultOf([&] { return items.parameter(fields); });
    };
    for (auto const& [type, isZero, kind, fits, misfits] : {
             Row{Parameter::BOOLEAN_PARAMETER, true, "boolean", {"tRUE", "42"}, {"yes"}},
             Row{Parameter::STRING_PARAMETER, false, "", {"100%s"}, {}},
             Row{Parameter::INT_PARAMETER, true, "signed integer", {" -2147483648"}, {"7 ", "2147483648"}},
             Row{Parameter::UINT_PARAMETER, false, "unsigned integer", {"4294967295"}, {"-1", "99999999999999999999"}},
             Row{Parameter::DOUBLE_PARAMETER, true, "double", {"-1.5e3"}, {"1,5", "1e999"}},
             Row{Parameter::OID_PARAMETER, false, "OID", {"#1-2-3-4 ", ""}, {"1-2-3", "1-2-3-4%s"}},
             Row{Parameter::ENUM_PARAMETER, false, "", {"anything"}, {}},
         }) {
        EXPECT_EQ(made({.optional = true, .unbounded = true, .type = type}), isZero ? "id*=0" : "none");
        EXPECT_EQ(made({.optional = true, .type = type}),
                  isZero ? "id*=0" : "Optional parameter \"id\" is missing a default value");
        for (auto const& text : fits) {
            EXPECT_EQ(made({.type = type, .defaultValue = text.c_str(), .validator = "STORAGElocation"}),
                      "id*=" + text);
        }
        for (auto const& text : misfits) {
            auto const invalid = "\"" + text + "\" is not a valid ";
            EXPECT_EQ(made({.type = type, .defaultValue = text.c_str(), .validator = "storageLocation"}),
                      invalid + "default value for parameter \"id\": id: " + invalid + kind);
        }
    }
    EXPECT_EQ(made({.type = Parameter::INT_PARAMETER, .defaultValue = "%s::", .validator = "storageLocation"}),
              "\"%s::\" is not a valid default value for parameter \"id\": "
              "id: \"%s::\" is not a valid signed integer\nValue is not properly formatted\n");
}

TEST_F(ParameterTest, ASpecializationTakesWhatItDoesNotChange) {
    ParameterEnumDefinition const levels("levels");
    createParameter({.id = "count", .type = Parameter::INT_PARAMETER});
    auto* base = createParameter({.id = "Level", .type = Parameter::ENUM_PARAMETER, .defaultValue = "low"});
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

    auto* text = createParameter({.id = "Text%s", .valueName = ""});
    EXPECT_EQ(text->getValueName(), nullptr);
    EXPECT_EQ(whatOf([&] { text->setEnumDefinition(&levels); }), "\"Text%s\" is not an enumeration parameter");
    text->addValidatorConfigurationParameterValue("Limit", "1");
    text->addValidatorConfigurationParameterValue("unit", "");
    EXPECT_EQ(toText(*text->getValidatorConfiguration()), "Limit?{Limit?=1 unit?=}");
}

TEST_F(ParameterTest, ValidatorsCheckEveryTextOfAValue) {
    auto const check = [](ParameterValidator const& validator, auto const& checked) -> std::string {
        std::unique_ptr<char[]> const message(validator.validate(checked));
        return message ? message.get() : "<passed>";
    };
    RejectingValidator const rejecting("rejecting");
    auto const* text = createParameter({.id = "t", .optional = true, .defaultValue = "good default"});
    EXPECT_EQ(check(rejecting, *value("a", "bad%s", "ok", nullptr, "bad")), "bad%s was rejected\nbad was rejected\n");
    EXPECT_EQ(check(rejecting, *value(text, nullptr, "good")), "<passed>");

    auto const& location = *manager().getValidator("storageLocation"); // looks at the first separator
    for (char const* good : {"", "/data/db", "a:b", "host::/data", "a::b::c", "a::b::", "host:::", "h::%s"}) {
        EXPECT_EQ(check(location, good), "<passed>") << good;
    }
    for (char const* bad : {"::/data", "host::", "::", ":::"}) {
        EXPECT_EQ(check(location, bad), "Value is not properly formatted") << bad;
    }
}

} // namespace
