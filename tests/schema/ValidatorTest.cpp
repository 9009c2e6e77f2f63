#include <configuration/ConfigurationException.h>
#include <configuration/ParameterEnumDefinition.h>

#include "schema/StorageLocationValidator.h"
#include "support/Exceptions.h"
#include "support/Schema.h"
#include "support/ValueTree.h"
#include "support/VirtualSlot.h"

#include <gmock/gmock.h>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

/// The message of a check, freed as its receiver has to.
template <class Checked>
std::string check(ParameterValidator const& validator, Checked const& checked) {
    std::unique_ptr<char[]> const message(validator.validate(checked));
    return message ? message.get() : "<passed>";
}

TEST(StorageLocationValidator, LooksAtTheFirstSeparator) {
    StorageLocationValidator const validator;
    EXPECT_STREQ(validator.getName(), "storageLocation");
    struct Row {
        char const* text;
        bool passes;
    };
    for (auto const& row : {Row{"", true}, Row{"/data/db", true}, Row{"a:b", true}, Row{"host::/data", true},
                            Row{"a::b::c", true}, Row{"a::b::", true}, Row{"host:::", true}, Row{"h::%s", true},
                            Row{"::/data", false}, Row{"host::", false}, Row{"::", false}, Row{":::", false}}) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(check(validator, row.text), row.passes ? "<passed>" : "Value is not properly formatted");
    }
}

TEST(ParameterValidator, ChecksEveryTextOfAValue) {
    RejectingValidator const validator("rejecting");
    Items items;
    auto const* flag = items.parameter({.id = "f", .optional = true, .type = Parameter::BOOLEAN_PARAMETER});
    auto const* text = items.parameter({.id = "t", .optional = true, .defaultValue = "bad default"});
    EXPECT_EQ(check(validator, *value("a", "bad1%s", "good", nullptr, "bad2")),
              "bad1%s was rejected\nbad2 was rejected\n");
    EXPECT_EQ(check(validator, *value("a", "good", "fine")), "<passed>");
    EXPECT_EQ(check(validator, *value("a", nullptr)), "<passed>");
    EXPECT_EQ(check(validator, *value(flag, nullptr)), "<passed>");
    EXPECT_EQ(check(validator, *value(text, nullptr)), "bad default was rejected\n");
    using OfValue = char* (ParameterValidator::*)(ParameterValue const&) const;
    using OfText = char* (ParameterValidator::*)(char const*) const;
    EXPECT_THAT(slotsOf(OfValue(&ParameterValidator::validate), OfText(&ParameterValidator::validate)),
                testing::ElementsAre(2, 3));
}

TEST(ParameterEnumDefinition, MatchesLabelsExactly) {
    ParameterEnumDefinition levels("levels");
    for (auto const& [label, number] : std::vector<std::pair<char const*, int>>{
             {"low", 1}, {"high", 2}, {"low", 5}, {"LOW", -3}, {"bottom", 1}, {"", 9}}) {
        levels.addEnumValue(label, number);
    }
    EXPECT_STREQ(levels.getName(), "levels");
    EXPECT_EQ(levels.getValue("low"), 1);
    EXPECT_EQ(levels.getValue("LOW"), -3);
    EXPECT_EQ(levels.getValue("bottom"), 1);
    EXPECT_EQ(levels.getValue(""), 9);
    EXPECT_EQ(whatOf<ConfigurationException>([&] { levels.getValue("High%s"); }), "symbol \"High%s\" was not found");
}

} // namespace
