#include <configuration/ContractViolationException.h>
#include <configuration/Memory.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterErrors.h>
#include <configuration/ParameterSpecialization.h>

#include "schema/StorageLocationValidator.h"
#include "support/Exceptions.h"
#include "support/Schema.h"
#include "support/ValueTree.h"
#include "support/WalkLog.h"

#include <gtest/gtest.h>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

/// One of each kind, which a refused call must leave as it is.
struct Subjects {
    Items items;
    ParameterErrors errors;
    Parameter* parameter = items.parameter({.id = "a"});
    ParameterGroup* group = items.group({.id = "g"}, {parameter});

    Subjects() {
        addError("first");
        configure("unit", "kb");
    }
    void addError(char const* format) {
        auto const unchecked = &ParameterErrors::addError; // the compiler does not know this format
        (errors.*unchecked)(format);
    }
    void makeParameter(char const* id, char const* name, char const* text) { items.parameter({id, name, text}); }
    void makeGroup(char const* id, char const* name, char const* text) { items.group({id, name, text}); }
    void configure(char const* name, char const* text) {
        parameter->addValidatorConfigurationParameterValue(name, text);
    }
    std::string state() const {
        return composeMessage(errors) + walkLog(*group) + parameter->getDescription() + group->getDescription() +
               toText(*parameter->getValidatorConfiguration());
    }
};

TEST(SchemaContract, ThrowsWithTheConditionAndChangesNothing) {
    constexpr char const* format = "format != 0 && strlen(format) > 0";
    constexpr char const* id = "id && strlen(id) > 0";
    constexpr char const* name = "name && strlen(name) > 0";
    constexpr char const* text = "description && strlen(description) > 0";
    constexpr char const* key = "name != 0 && strlen(name) > 0";
    using S = Subjects&;
    struct Row {
        char const* label;
        char const* condition;
        void (*call)(Subjects&);
    };
    for (auto const& row : {
             Row{"null format", format, [](S s) { s.addError(nullptr); }},
             Row{"empty format", format, [](S s) { s.addError(""); }},
             Row{"error index", "index < getNumberOfErrors()", [](S s) { s.errors.getError(1); }},
             Row{"null id first", id, [](S s) { s.makeParameter(nullptr, nullptr, nullptr); }},
             Row{"empty id first", id, [](S s) { s.makeGroup("", "", ""); }},
             Row{"null name second", name, [](S s) { s.makeGroup("x", nullptr, nullptr); }},
             Row{"empty name second", name, [](S s) { s.makeParameter("x", "", ""); }},
             Row{"null description", text, [](S s) { s.makeParameter("x", "x", nullptr); }},
             Row{"empty description", text, [](S s) { s.makeGroup("x", "x", ""); }},
             Row{"set null description", text, [](S s) { s.parameter->setDescription(nullptr); }},
             Row{"set empty description", text, [](S s) { s.group->setDescription(""); }},
             Row{"null enumeration", "enumDef != 0", [](S s) { s.parameter->setEnumDefinition(nullptr); }},
             Row{"null configuration name first", key, [](S s) { s.configure(nullptr, nullptr); }},
             Row{"empty configuration name", key, [](S s) { s.configure("", "v"); }},
             Row{"null configuration text", "value != 0", [](S s) { s.configure("unit", nullptr); }},
             Row{"null base", "base != 0", [](S) { ParameterSpecialization(nullptr, "x", false, false, "", false); }},
             Row{"add null", "item != 0", [](S s) { s.group->addItem(nullptr); }},
             Row{"remove null", "id != 0", [](S s) { s.group->removeItem(nullptr); }},
             Row{"find null", "id != 0", [](S s) { s.group->getItem(nullptr, false); }},
             Row{"search null", "id != 0", [](S s) { s.group->getItem(nullptr, true); }},
             Row{"item index", "index < getNumberOfItems()", [](S s) { s.group->getItem(1); }},
             Row{"null enumeration name", key, [](S) { ParameterEnumDefinition const made(nullptr); }},
             Row{"empty enumeration name", key, [](S) { ParameterEnumDefinition const made(""); }},
             Row{"null validator name", key, [](S) { RejectingValidator const made(nullptr); }},
             Row{"empty validator name", key, [](S) { RejectingValidator const made(""); }},
             Row{"null location", "value != 0",
                 [](S) { StorageLocationValidator().validate(static_cast<char const*>(nullptr)); }},
             Row{"null specification", "id != 0", [](S) { Specification const made(nullptr, nullptr); }},
             Row{"null text of a specification", "description != 0", [](S) { Specification const made("x", nullptr); }},
         }) {
        SCOPED_TRACE(row.label);
        Subjects subjects;
        auto const before = subjects.state();
        EXPECT_EQ(whatOf<kivo::ContractViolationException>([&] { row.call(subjects); }), contractText(row.condition));
        EXPECT_EQ(subjects.state(), before);
    }
}

TEST(Memory, NullIsIgnored) {
    destroy(static_cast<ParameterItem const*>(nullptr));
    destroy(static_cast<ParameterValidator const*>(nullptr));
    destroy(static_cast<ParameterEnumDefinition const*>(nullptr));
    destroy(static_cast<Specification const*>(nullptr));
    EXPECT_EQ(cloneString(nullptr), nullptr);
    EXPECT_STREQ(std::unique_ptr<char[]>(cloneString("text")).get(), "text");
}

} // namespace
