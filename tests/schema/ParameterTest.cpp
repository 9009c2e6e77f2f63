#include <configuration/ConfigurationParameterException.h>
#include <configuration/ParameterEnumDefinition.h>

#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Schema.h"
#include "support/ValueTree.h"
#include "support/VirtualSlot.h"

#include <gmock/gmock.h>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

class ParameterTest : public ManagerTest {
protected:
    ParameterTest() { manager().addValidator(std::make_unique<RejectingValidator>("rejecting").release()); }
};

/// The default, bound and marked as one ("port*=0"), "none", or the exception: its faults if it lists them.
std::string defaultOf(ParameterFields fields) {
    try {
        fields.id = "port";
        Items items;
        auto const* value = items.parameter(fields)->getDefaultValue();
        return value ? toText(*value) : "none";
    } catch (ConfigurationParameterException const& thrown) {
        EXPECT_EQ(thrown.what(),
                  "\"" + std::string(fields.defaultValue) + "\" is not a valid default value for parameter \"port\"");
        return composeMessage(thrown.getErrors());
    } catch (ConfigurationException const& thrown) {
        return thrown.what();
    }
}

TEST_F(ParameterTest, CreateChecksItsArgumentsInOrder) {
    createParameter({.id = "taken"});
    struct Row {
        ParameterFields fields;
        std::string text;
    };
    for (auto const& row : {
             Row{{nullptr, nullptr}, contractText("id != 0")},
             Row{{"", ""}, contractText("objectKey != 0 && *objectKey != '\\0'")},
             Row{{"TAKEN", nullptr}, "Parameter id \"TAKEN\" is not unique"},
             Row{{"id", "", nullptr}, contractText("name && strlen(name) > 0")},
             Row{{.description = "", .validator = "none"}, contractText("description && strlen(description) > 0")},
             Row{{.optional = true, .validator = "none%s"}, "Validator \"none%s\" was not found"},
             Row{{.name = "Name", .optional = true}, "Optional parameter \"Name\" is missing a default value"},
             Row{{.name = "Name", .type = Parameter::INT_PARAMETER, .defaultValue = "5%d"},
                 "\"5%d\" is not a valid default value for parameter \"Name\""},
         }) {
        EXPECT_EQ(whatOf([&] { createParameter(row.fields); }), row.text);
        EXPECT_EQ(manager().getParameterItem("id"), nullptr); // nothing was registered
    }
    EXPECT_STREQ(manager().getParameterItem("Taken", ParameterItem::PARAMETER)->getId(), "taken");
}

TEST_F(ParameterTest, OptionalFlagsAndNumbersDefaultToZero) {
    std::string const missing = "Optional parameter \"port\" is missing a default value";
    struct Row {
        Parameter::ValueType type;
        std::string optional, optionalUnbounded;
    };
    for (auto const& [type, optional, optionalUnbounded] :
         {Row{Parameter::BOOLEAN_PARAMETER, "port*=0", "port*=0"}, Row{Parameter::STRING_PARAMETER, missing, "none"},
          Row{Parameter::INT_PARAMETER, "port*=0", "port*=0"}, Row{Parameter::UINT_PARAMETER, missing, "none"},
          Row{Parameter::DOUBLE_PARAMETER, "port*=0", "port*=0"}, Row{Parameter::OID_PARAMETER, missing, "none"},
          Row{Parameter::ENUM_PARAMETER, missing, "none"}}) {
        SCOPED_TRACE(type);
        EXPECT_EQ(defaultOf({.type = type}), "none");
        EXPECT_EQ(defaultOf({.unbounded = true, .type = type}), "none");
        EXPECT_EQ(defaultOf({.optional = true, .type = type}), optional);
        EXPECT_EQ(defaultOf({.optional = true, .unbounded = true, .type = type}), optionalUnbounded);
        EXPECT_EQ(defaultOf({.optional = true, .type = type, .defaultValue = "", .validator = "rejecting"}), "port*=");
    }
}

TEST_F(ParameterTest, ADefaultHasToFitTypeAndValidator) {
    struct Row {
        Parameter::ValueType type;
        std::string text, misfit; // the type's name in the message; empty: the text fits
    };
    for (auto const& [type, text, misfit] :
         {Row{Parameter::BOOLEAN_PARAMETER, "tRUE", ""}, Row{Parameter::BOOLEAN_PARAMETER, "42", ""},
          Row{Parameter::BOOLEAN_PARAMETER, "yes", "boolean"}, Row{Parameter::STRING_PARAMETER, "100%s", ""},
          Row{Parameter::INT_PARAMETER, " -2147483648", ""}, Row{Parameter::INT_PARAMETER, "7 ", "signed integer"},
          Row{Parameter::INT_PARAMETER, "2147483648", "signed integer"},
          Row{Parameter::UINT_PARAMETER, "4294967295", ""}, Row{Parameter::UINT_PARAMETER, "-1", "unsigned integer"},
          Row{Parameter::UINT_PARAMETER, "99999999999999999999", "unsigned integer"},
          Row{Parameter::DOUBLE_PARAMETER, "-1.5e3", ""}, Row{Parameter::DOUBLE_PARAMETER, "1,5", "double"},
          Row{Parameter::DOUBLE_PARAMETER, "1e999", "double"}, Row{Parameter::OID_PARAMETER, "#1-2-3-4 ", ""},
          Row{Parameter::OID_PARAMETER, "1-2-3", "OID"}, Row{Parameter::OID_PARAMETER, "1-2-3-4%s", "OID"},
          Row{Parameter::ENUM_PARAMETER, "anything", ""}}) {
        EXPECT_EQ(defaultOf({.type = type, .defaultValue = text.c_str(), .validator = "REJECTING"}),
                  misfit.empty() ? "port*=" + text : "port: \"" + text + "\" is not a valid " + misfit);
    }
    EXPECT_EQ(defaultOf({.defaultValue = "bad%s", .validator = "rejecting"}), "bad%s was rejected\n");
    EXPECT_EQ(defaultOf({.type = Parameter::INT_PARAMETER, .defaultValue = "bad", .validator = "rejecting"}),
              "port: \"bad\" is not a valid signed integer\nbad was rejected\n");
}

TEST_F(ParameterTest, HasNoValueNameValidatorOrLabelsUnlessGiven) {
    auto const* full = createParameter({.id = "full", .valueName = "COUNT", .validator = "REJECTING", .hidden = true});
    EXPECT_STREQ(full->getValueName(), "COUNT");
    EXPECT_EQ(full->getValidator(), manager().getValidator("rejecting"));
    EXPECT_TRUE(full->isHidden());
    Items items;
    auto* bare = items.parameter({.valueName = ""});
    EXPECT_FALSE(bare->getValueName() || items.parameter({})->getValueName() || bare->getValidator() ||
                 bare->getEnumDefinition() || bare->getValidatorConfiguration() || bare->isHidden());
    EXPECT_FALSE(bare->isOptional() || bare->isUnbounded() || bare->isSpecialized());
    EXPECT_STREQ(bare->getItemTypeName(), "Parameter");
    bare->addValidatorConfigurationParameterValue("Limit", "1");
    bare->addValidatorConfigurationParameterValue("unit", "");
    bare->addValidatorConfigurationParameterValue("LIMIT", "2");
    EXPECT_EQ(toText(*bare->getValidatorConfiguration()), "Limit?{Limit?=1,2 unit?=}");
    bare->setDescription("100%s");
    EXPECT_STREQ(bare->getDescription(), "100%s");
}

TEST_F(ParameterTest, OnlyAnEnumerationTakesADefinition) {
    ParameterEnumDefinition const first("first");
    ParameterEnumDefinition const second("second");
    Items items;
    auto* level = items.parameter({.type = Parameter::ENUM_PARAMETER});
    level->setEnumDefinition(&first);
    level->setEnumDefinition(&second);
    EXPECT_EQ(level->getEnumDefinition(), &second);
    auto* text = items.parameter({.name = "Text%s"});
    EXPECT_EQ(whatOf<ConfigurationException>([&] { text->setEnumDefinition(&first); }),
              "\"Text%s\" is not an enumeration parameter");
    EXPECT_EQ(text->getEnumDefinition(), nullptr);
}

TEST_F(ParameterTest, KeepsTheOrderOfVirtualOperations) {
    EXPECT_THAT(slotsOf(&Parameter::getItemType, &Parameter::isOptional, &Parameter::isUnbounded, &Parameter::getId,
                        &Parameter::getName, &Parameter::getDescription, &Parameter::setDescription, &Parameter::accept,
                        &Parameter::isSpecialized, &Parameter::getItemTypeName, &Parameter::getValueName,
                        &Parameter::getValueType, &Parameter::getDefaultValue, &Parameter::setEnumDefinition,
                        &Parameter::getEnumDefinition, &Parameter::getValidator),
                testing::ElementsAre(2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17));
    EXPECT_EQ(slotOf(&ParameterGroup::getItemTypeName), 11u);
}

} // namespace
