#include <configuration/ConfigurationParameterException.h>
#include <configuration/ContractViolationException.h>
#include <configuration/ParameterSpecialization.h>

#include "support/Exceptions.h"
#include "support/WalkLog.h"

#include <gtest/gtest.h>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

std::string const LONGEST(4095, '%');

TEST(ParameterErrors, AreThrownTogetherOneALine) {
    using Messages = std::vector<std::string>;
    for (auto const& [messages, composed] : {
             std::pair(Messages{"b", "a", "b"}, std::string("b\na\nb")),
             {{"100%s", "%n%d"}, "100%s\n%n%d"},
             {{LONGEST + "cut", "z"}, LONGEST + "\nz"},
             {{LONGEST, LONGEST, "z"}, LONGEST + "\n" + LONGEST + "\nz"}, // the whole is not cut
         }) {
        ParameterErrors errors;
        EXPECT_EQ(whatOf([&] { errors.throwIfErrors(); }), "<nothing>");
        for (auto const& message : messages) {
            errors.addError("%s", message.c_str());
        }
        EXPECT_EQ(whatOf<ConfigurationParameterException>([&] { errors.throwIfErrors(); }), composed);
    }
}

TEST(ConfigurationException, OwnsMessageAndList) {
    ParameterErrors errors;
    errors.addError("a");
    auto source = std::make_unique<ConfigurationParameterException>(errors, "%d%s", 5, LONGEST.c_str());
    auto const copy = *source;
    source.reset();
    ParameterErrors assigned;
    assigned = errors;
    errors.clear();
    EXPECT_EQ(copy.what(), "5" + LONGEST.substr(1));
    EXPECT_EQ(composeMessage(copy.getErrors()) + composeMessage(assigned), "aa");
    ConfigurationException const silent(nullptr);
    EXPECT_EQ(ConfigurationException(silent).what(), nullptr);
}

struct Subjects {
    Items items;
    ParameterErrors errors;
    ParameterGroup* group = items.group("g{a}");
    Parameter* parameter = static_cast<Parameter*>(group->getItem(0ul));

    void set(char const* name, char const* text) { parameter->addValidatorConfigurationParameterValue(name, text); }
};

auto const addErrorUnchecked = &ParameterErrors::addError; // the compiler does not know this format

// A text holds the whole condition.
TEST(SchemaContract, ThrowsWithTheConditionAndChangesNothing) {
    using S = Subjects&;
    using Row = std::pair<char const*, void (*)(Subjects&)>;
    for (auto const& [condition, call] : {
             Row{"format != 0 && strlen(format) > 0", [](S s) { (s.errors.*addErrorUnchecked)(""); }},
             Row{"index < getNumberOfErrors()", [](S s) { s.errors.getError(0); }},
             Row{"id && strlen(id) > 0", [](S) { ParameterGroup("", "", "", {}, {}, {}, {}); }},
             Row{"description && strlen(description) > 0", [](S s) { s.parameter->setDescription(nullptr); }},
             Row{"enumDef != 0", [](S s) { s.parameter->setEnumDefinition(nullptr); }},
             Row{"name != 0 && strlen(name) > 0", [](S s) { s.set(nullptr, nullptr); }},
             Row{"value != 0", [](S s) { s.set("unit", nullptr); }},
             Row{"base != 0", [](S) { ParameterSpecialization(nullptr, "x", false, false, "", false); }},
             Row{"item != 0", [](S s) { s.group->addItem(nullptr); }},
             Row{"id != 0", [](S s) { s.group->getItem(nullptr, true); }},
             Row{"index < getNumberOfItems()", [](S s) { s.group->getItem(1); }},
             Row{"description != 0", [](S) { Specification const made("x", nullptr); }},
         }) {
        Subjects subjects;
        auto const thrown = whatOf<kivo::ContractViolationException>([&, refused = call] { refused(subjects); });
        EXPECT_EQ(thrown, contractText(condition));
        EXPECT_EQ(walkLog(*subjects.group) + composeMessage(subjects.errors), "<g a >gNo errors were detected");
        EXPECT_EQ(subjects.parameter->getValidatorConfiguration(), nullptr);
    }
}

} // namespace
