#include <configuration/ConfigurationParameterException.h>
#include <configuration/ContractViolationException.h>

#include "support/Exceptions.h"
#include "support/VirtualSlot.h"

#include <gmock/gmock.h>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

std::string const LONGEST(4095, '%');

ParameterErrors listOf(std::vector<std::string> const& messages) {
    ParameterErrors errors;
    for (auto const& message : messages) {
        errors.addError("%s", message.c_str());
    }
    return errors;
}

TEST(ParameterErrors, AreThrownTogetherOneALine) {
    struct Row {
        char const* label;
        std::vector<std::string> messages;
        std::string composed;
    };
    for (auto const& row : {Row{"one", {"a"}, "a"}, Row{"equal messages stay", {"b", "a", "b"}, "b\na\nb"},
                            Row{"percent signs", {"100%s", "%n%d"}, "100%s\n%n%d"},
                            Row{"a message is cut", {LONGEST + "cut", "z"}, LONGEST + "\nz"},
                            Row{"the whole is not", {LONGEST, LONGEST, "z"}, LONGEST + "\n" + LONGEST + "\nz"}}) {
        SCOPED_TRACE(row.label);
        auto const errors = listOf(row.messages);
        EXPECT_EQ(errors.getNumberOfErrors(), row.messages.size());
        EXPECT_EQ(composeMessage(errors), row.composed);
        EXPECT_EQ(whatOf<ConfigurationParameterException>([&] { errors.throwIfErrors(); }), row.composed);
    }
    EXPECT_EQ(composeMessage(ParameterErrors()), "No errors were detected");
    EXPECT_EQ(whatOf([] { ParameterErrors().throwIfErrors(); }), "<nothing>");
}

TEST(ParameterErrors, CopiesShareNothing) {
    auto errors = listOf({"a", "b"});
    ParameterErrors const copy(errors);
    auto assigned = listOf({"old"});
    assigned = errors;
    auto const& alias = errors;
    errors = alias;
    EXPECT_EQ(composeMessage(errors), "a\nb");
    errors.clear();
    errors.addError("%d%%", 50);
    EXPECT_EQ(composeMessage(errors), "50%");
    EXPECT_EQ(composeMessage(copy), "a\nb");
    EXPECT_EQ(composeMessage(assigned), "a\nb");
}

TEST(ConfigurationException, OwnsMessageAndList) {
    auto errors = listOf({"a", "b"});
    ConfigurationParameterException const composed(errors, nullptr);
    auto source = std::make_unique<ConfigurationParameterException>(errors, "%d%s", 5, LONGEST.c_str());
    auto const copy = *source;
    errors.clear();
    source.reset();
    EXPECT_STREQ(composed.what(), "a\nb");
    EXPECT_EQ(copy.what(), "5" + LONGEST.substr(1));
    EXPECT_EQ(composeMessage(copy.getErrors()), "a\nb");
    EXPECT_EQ(ConfigurationException("%s", (LONGEST + "cut").c_str()).what(), LONGEST);
    ConfigurationException const silent(nullptr);
    EXPECT_EQ(ConfigurationException(silent).what(), nullptr);
}

TEST(ConfigurationException, IsAKernelExceptionOfNoKind) {
    try {
        listOf({"a"}).throwIfErrors();
        FAIL();
    } catch (kvException& caught) {
        EXPECT_STREQ(static_cast<char const*>(caught), "a");
        EXPECT_EQ(caught.get_kind(), -1);
        EXPECT_EQ(caught.asKernelException(), nullptr);
    }
    EXPECT_THAT(slotsOf(&ConfigurationException::what, &ConfigurationException::operator char const*,
                        &ConfigurationException::get_kind, &ConfigurationException::reportErrors,
                        &ConfigurationException::asKernelException),
                testing::ElementsAre(2, 3, 4, 5, 6));
}

TEST(ContractViolationException, KeepsThePointer) {
    static char const text[] = "Contract violation: \"x\"";
    kivo::ContractViolationException const thrown(text);
    EXPECT_EQ(kivo::ContractViolationException(thrown).what(), text);
    EXPECT_EQ(slotOf(&kivo::ContractViolationException::what), 2u);
}

} // namespace
