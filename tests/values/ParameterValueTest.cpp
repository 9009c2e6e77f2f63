#include <configuration/ConfigurationException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterEnumValue.h>

#include "support/CommaLocale.h"
#include "support/Exceptions.h"
#include "support/Schema.h"
#include "support/ValueTree.h"
#include "support/VirtualSlot.h"
#include "values/ValueItemUtil.h"

#include <gmock/gmock.h>
#include <sstream>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

class ParameterValueTest : public testing::Test {
protected:
    ParameterValueTest() {
        levels.addEnumValue("off", 0);
        levels.addEnumValue("high", 2);
        levels.addEnumValue("below", -3);
    }

    Parameter* parameter(ParameterFields const& fields) {
        auto* made = items.parameter(fields);
        if (fields.type == Parameter::ENUM_PARAMETER) {
            made->setEnumDefinition(&levels);
        }
        return made;
    }

    Items items;
    ParameterEnumDefinition levels{"levels"};
    ValueItemUtil util;
};

/// What the readers of the first entry return: int, unsigned, double and bool.
std::string numbersOf(ParameterValue const& value) {
    std::ostringstream text;
    text.precision(12);
    text << value.getIntValue(0) << ' ' << value.getUIntValue(0) << ' ' << value.getDoubleValue(0) << ' '
         << (value.getBooleanValue(0) ? "true" : "false");
    return text.str();
}

TEST_F(ParameterValueTest, AnEntryWithoutATextReadsAsTheParameterSays) {
    constexpr auto boolean = Parameter::BOOLEAN_PARAMETER;
    constexpr auto integer = Parameter::INT_PARAMETER;
    constexpr auto enumeration = Parameter::ENUM_PARAMETER;
    std::string const none = "<none> <none> / 0 0 0 false";
    struct Row {
        char const* label;
        ParameterFields fields;
        std::string readings; // the text with and without the default, and the numbers
    };
    for (auto const& [label, fields, readings] : {
             Row{"mandatory", {.type = boolean, .defaultValue = "1"}, none},
             Row{"mandatory number", {.type = integer, .defaultValue = "8"}, none},
             Row{"mandatory label", {.type = enumeration, .defaultValue = "high"}, none},
             Row{"flag", {.optional = true, .type = boolean}, "1 1 / 1 1 1 true"},
             Row{"flag, default off", {.optional = true, .type = boolean, .defaultValue = "0"}, "1 1 / 1 1 1 true"},
             Row{"unbounded flag", {.optional = true, .unbounded = true, .type = boolean}, "1 1 / 1 1 1 true"},
             Row{"number", {.optional = true, .type = integer, .defaultValue = "8"}, "8 <none> / 8 8 8 true"},
             Row{"text", {.optional = true, .defaultValue = "%s"}, "%s <none> / 0 0 0 true"},
             Row{"empty text", {.optional = true, .defaultValue = ""}, " <none> / 0 0 0 false"},
             Row{"label", {.optional = true, .type = enumeration, .defaultValue = "high"}, "high <none> / 2 2 2 true"},
             Row{"no default", {.optional = true, .unbounded = true}, none},
             Row{"label, no default", {.optional = true, .unbounded = true, .type = enumeration}, none},
         }) {
        SCOPED_TRACE(label);
        auto const* bound = parameter(fields);
        auto const absent = value(bound, nullptr, "given");
        auto const textOf = [&](bool ignoreDefault) {
            char const* text = absent->getValue(0, ignoreDefault);
            return std::string(text ? text : "<none>");
        };
        auto const withoutDefault = textOf(true);
        auto read = textOf(false) + " " + withoutDefault + " / ";
        auto const thrown = whatOf([&] { read += numbersOf(*value(bound, nullptr)); });
        EXPECT_EQ(thrown == "<nothing>" ? read : thrown, readings);
        EXPECT_STREQ(absent->getValue(1, false), "given");
    }
    EXPECT_EQ(numbersOf(*value("unbound", nullptr)), "0 0 0 false");
}

TEST_F(ParameterValueTest, AFlagKeepsTheTextThatItWasReadAs) {
    auto const* optional = parameter({.optional = true, .type = Parameter::BOOLEAN_PARAMETER});
    auto const* mandatory = parameter({.type = Parameter::BOOLEAN_PARAMETER});
    auto const read = value(optional, nullptr);
    auto const unread = value(optional, nullptr);
    EXPECT_TRUE(read->getBooleanValue(0));
    auto const copy = *read;
    for (auto* item : {read.get(), unread.get()}) {
        util.assignParameterItem(*item, mandatory);
    }
    EXPECT_EQ(toText(*read) + toText(*unread) + toText(copy), "id=1id=<none>id=1");
    read->setValue(0, nullptr);
    EXPECT_EQ(toText(*read), "id=<none>");
}

TEST_F(ParameterValueTest, ConvertsTextsLeniently) {
    struct Row {
        char const *text, *numbers;
    };
    // clang-format off
    Row const rows[] = {
        {"12abc", "12 12 12 true"},   {"abc", "0 0 0 true"},                {"", "0 0 0 false"},
        {"+7", "7 7 7 true"},         {" \t-7", "-7 4294967289 -7 true"},   {" ", "0 0 0 true"},
        {"0", "0 0 0 false"},         {" -00", "0 0 -0 false"},             {"0 ", "0 0 0 true"},
        {"fALSE", "0 0 0 false"},     {"false ", "0 0 0 true"},             {"no", "0 0 0 true"},
        {"2.5", "2 2 2.5 true"},      {"0,5", "0 0 0 true"},                {"1e3x", "1 1 1000 true"},
        {"0x10", "0 0 16 true"},      {"4294967295", "-1 4294967295 4294967295 true"},
        {"4294967296", "0 0 4294967296 false"}, {"99999999999999999999", "-1 4294967295 1e+20 true"},
    };
    // clang-format on
    for (auto const& row : rows) {
        EXPECT_EQ(numbersOf(*value("unbound", row.text)), row.numbers) << row.text;
    }
    CommaLocale const locale;
    ASSERT_TRUE(locale.isActive());
    for (auto const& row : rows) {
        EXPECT_EQ(numbersOf(*value("unbound", row.text)), row.numbers) << row.text;
    }
    EXPECT_EQ(whatOf([&] { parameter({.type = Parameter::DOUBLE_PARAMETER, .defaultValue = "0.5"}); }), "<nothing>");
    EXPECT_NE(whatOf([&] { parameter({.type = Parameter::DOUBLE_PARAMETER, .defaultValue = "0,5"}); }), "<nothing>");
}

TEST_F(ParameterValueTest, ReadsLabelsAsTheirNumbers) {
    auto const* level = parameter({.type = Parameter::ENUM_PARAMETER});
    EXPECT_EQ(numbersOf(*value(level, "high")), "2 2 2 true");
    EXPECT_EQ(numbersOf(*value(level, "off")), "0 0 0 false");
    EXPECT_EQ(numbersOf(*value(level, "below")), "-3 4294967293 -3 true");
    auto const* plain = items.parameter({.type = Parameter::ENUM_PARAMETER});
    EXPECT_EQ(numbersOf(*value(plain, "2")), "2 2 2 true"); // no definition yet

    auto const unknown = value(level, "HIGH%s");
    ParameterEnumValue own("own", "HIGH%s");
    ParameterEnumValue absent("own", nullptr);
    EXPECT_EQ(whatOf([&] { own.getIntValue(1); }), contractText("index < mValues.size()"));
    ParameterEnumValue const undefined("own", "high");
    own.setEnumDefinition(levels);
    absent.setEnumDefinition(levels);
    using Read = void (*)(ParameterValue const&);
    for (auto const read : {Read([](auto& v) { v.getBooleanValue(0); }), Read([](auto& v) { v.getIntValue(0); }),
                            Read([](auto& v) { v.getUIntValue(0); }), Read([](auto& v) { v.getDoubleValue(0); })}) {
        EXPECT_EQ(whatOf([&] { read(*unknown); }), "symbol \"HIGH%s\" was not found");
        EXPECT_EQ(whatOf([&] { read(own); }), "symbol \"HIGH%s\" was not found");
        EXPECT_EQ(whatOf([&] { read(absent); }), "symbol \"\" was not found");
        EXPECT_EQ(whatOf([&] { read(undefined); }), "Must set the enumeration defintion first");
    }
    own.setValue(0, "below");
    std::unique_ptr<ParameterValueItem> const clone(own.clone(ParameterValueItem::SHALLOW_COPY));
    ParameterEnumValue assigned("other", "high");
    assigned = own;
    EXPECT_EQ(numbersOf(static_cast<ParameterValue&>(*clone)), "-3 4294967293 -3 true");
    EXPECT_EQ(numbersOf(assigned), "-3 4294967293 -3 true");
    EXPECT_EQ(assigned.getEnumDefinition(), &levels);
}

TEST_F(ParameterValueTest, IsKnownByItsSchemaItemOnceBound) {
    auto const* port = parameter({.id = "Port", .name = "PortName"});
    auto const* box = items.group({.id = "box", .name = "Box%s"});
    auto const leaf = value("text", "1");
    auto const branch = valueGroup("text");
    EXPECT_EQ(ParameterValue(static_cast<char const*>(nullptr), "1").getParameterItemId(), nullptr);
    EXPECT_EQ(ParameterValueGroup("").getParameterItemId(), nullptr);
    EXPECT_EQ(toText(*leaf) + " " + toText(*branch), "text?=1 text?{}");

    EXPECT_EQ(whatOf<ConfigurationException>([&] { util.assignParameterItem(*leaf, box); }),
              "\"Box%s\" must be a parameter");
    EXPECT_EQ(whatOf<ConfigurationException>([&] { util.assignParameterItem(*branch, port); }),
              "\"PortName\" must be a parameter group");
    EXPECT_EQ(toText(*leaf) + " " + toText(*branch), "text?=1 text?{}");
    util.assignParameterItem(*leaf, port);
    util.assignParameterItem(*branch, box);
    util.setParameterItemId(*leaf, "renamed");
    EXPECT_EQ(toText(*leaf) + " " + toText(*branch), "Port=1 box{}");
    EXPECT_EQ(leaf->getParameter(), port);
    EXPECT_EQ(leaf->getValueType(), Parameter::STRING_PARAMETER);
    EXPECT_EQ(branch->getParameterGroup(), box);
    util.setItemState(*leaf, ParameterValueItem::NOT_ASSIGNED);
    EXPECT_EQ(toText(*leaf), "Port?=1");
}

TEST_F(ParameterValueTest, CopiesAreWholeAndIndependent) {
    auto const* port = parameter({.id = "port", .optional = true, .unbounded = true});
    auto const tree = valueGroup("root", value(port, "1", nullptr, "100%s"));
    auto& source = *tree->getValue("port");
    source.setIsUsingDefaultValue(true);
    ParameterValue const copy(source);
    ParameterValue assigned("other", "x");
    assigned = source;
    std::unique_ptr<ParameterValueItem> const clone(source.clone(ParameterValueItem::SHALLOW_COPY));
    auto const& alias = source;
    source = alias;
    EXPECT_EQ(toText(source), "port*=1,<none>,100%s");
    source.addValue("new");
    source.setValue(0, "changed");
    for (ParameterValueItem const* made :
         std::initializer_list<ParameterValueItem const*>{&copy, &assigned, clone.get()}) {
        EXPECT_EQ(toText(*made), "port*=1,<none>,100%s");
        EXPECT_EQ(made->getParentGroup(), tree.get());
        EXPECT_EQ(static_cast<ParameterValue const*>(made)->getValueType(), Parameter::STRING_PARAMETER);
    }
}

TEST_F(ParameterValueTest, KeepsTheOrderOfVirtualOperations) {
    struct Access : ParameterValue {
        static auto assign() { return slotOf(&Access::assignParameterItem); }
    };
    EXPECT_THAT(slotsOf(&ParameterValue::getParameterItemId, &ParameterValue::getItemType, &ParameterValue::accept,
                        &ParameterValue::clone),
                testing::ElementsAre(2, 3, 4, 5));
    EXPECT_EQ(Access::assign(), 6u);
    EXPECT_THAT(slotsOf(&ParameterEnumValue::getValue, &ParameterEnumValue::getBooleanValue,
                        &ParameterEnumValue::getIntValue, &ParameterEnumValue::getUIntValue,
                        &ParameterEnumValue::getDoubleValue),
                testing::ElementsAre(7, 8, 9, 10, 11));
}

} // namespace
