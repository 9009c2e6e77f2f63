#include <configuration/ConfigurationParameterException.h>
#include <configuration/ContractViolationException.h>
#include <configuration/ParameterSpecialization.h>
#include <configuration/ValueGroup.h>

#include "support/Exceptions.h"
#include "support/WalkLog.h"
#include "values/ValueItemUtil.h"

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
    std::unique_ptr<ParameterValueGroup> tree = treeOf("root{a=1 list=1,2 bound=1,2}", *items.group("g{bound}"));

    void set(char const* name, char const* text) { parameter->addValidatorConfigurationParameterValue(name, text); }
};

auto const addErrorUnchecked = &ParameterErrors::addError; // the compiler does not know this format

// A text holds the whole condition: one row for each place that checks one.
TEST(Contract, ThrowsWithTheConditionAndChangesNothing) {
    constexpr char const* none = nullptr;
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
             Row{"index < mValues.size()", [](S s) { s.tree->getValue("a")->getDoubleValue(1); }},
             Row{"mParameter != 0", [](S s) { s.tree->getValue("a")->getValueType(); }},
             Row{"parameterItem != 0",
                 [](S s) { ValueItemUtil().assignParameterItem(*s.tree->getItem("a"), nullptr); }},
             Row{"parameterItemId != 0 && *parameterItemId != '\\0'",
                 [](S s) { ValueItemUtil().setParameterItemId(*s.tree->getItem("a"), ""); }},
             Row{"mParameterItem != 0", [](S) { ParameterValue(static_cast<Parameter*>(nullptr), "1"); }},
             Row{"item != 0", [](S s) { s.tree->addItem(nullptr); }},
             Row{"index < getNumberOfItems()", [](S s) { s.tree->getItem(3); }},
             Row{"parameterItemId != 0", [](S s) { s.tree->getItem(none); }},
             Row{"name != 0 && strlen(name) > 0", [](S s) { s.tree->getValue(none); }},
             Row{"parameter != 0", [](S s) { s.tree->getValue(static_cast<Parameter*>(nullptr)); }},
             Row{"index < mItems.size()", [](S s) { s.tree->removeItem(3ul); }},
             Row{"mValue->getParameterItem() != 0", [](S s) { ValueGroup(s.tree.get()).getValue("list"); }},
             Row{"mValue->getNumberOfValues() == 1", [](S s) { ValueGroup(s.tree.get()).getValue("bound"); }},
             Row{"!mValueGroup || mValueGroup->getItemType() == ParameterValueGroup::PARAMETER_VALUE_GROUP",
                 [](S s) { ValueGroup(s.tree.get()).getValueGroup("a"); }},
         }) {
        Subjects subjects;
        auto const thrown = whatOf<kivo::ContractViolationException>([&, refused = call] { refused(subjects); });
        EXPECT_EQ(thrown, contractText(condition));
        EXPECT_EQ(walkLog(*subjects.group) + composeMessage(subjects.errors), "<g a >gNo errors were detected");
        EXPECT_EQ(toText(*subjects.tree), "root?{a?=1 list?=1,2 bound=1,2}");
        EXPECT_EQ(subjects.parameter->getValidatorConfiguration(), nullptr);
    }
}

} // namespace
