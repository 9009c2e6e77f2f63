#include "exports/SlotCalls.h"
#include "support/ManagerTest.h"
#include "support/Schema.h"

#include <configuration/CommandLineValueProvider.h>
#include <configuration/ConfigurationException.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Value.h>

#include <gtest/gtest.h>

namespace kivo::test {
namespace {

using namespace configuration;

class SlotOrder : public ManagerTest {};

TEST_F(SlotOrder, ItemsAnswerByPosition) {
    auto* parameter = createParameter({.id = "a",
                                       .name = "n",
                                       .optional = true,
                                       .type = Parameter::INT_PARAMETER,
                                       .defaultValue = "8",
                                       .valueName = "number",
                                       .validator = "storageLocation"});
    EXPECT_EQ(callParameter(parameter), "0 1 0 a n changed 0 Parameter number 2 1 0 1");
    auto* group = createContainer({.id = "g", .name = "group", .unbounded = true});
    EXPECT_EQ(callGroup(group), "1 0 1 g group changed 0 Container");
}

TEST_F(SlotOrder, ValuesAnswerByPosition) {
    auto* parameter = createParameter({.id = "a", .type = Parameter::INT_PARAMETER});
    ParameterValue value(parameter, "7");
    EXPECT_EQ(callValue(&value), "a 0 7 1 7 7 7 a");
    Value handle(&value, false);
    EXPECT_EQ(callHandle(&handle), "42 0 1");
    ParameterValueGroup group("g");
    EXPECT_EQ(callValueGroup(&group), "g 1");
}

TEST_F(SlotOrder, ValidatorsProvidersAndExceptionsAnswerByPosition) {
    RejectingValidator validator("v");
    ParameterValue const value("a", "bad one");
    EXPECT_EQ(callValidator(&validator, &value), "bad one was rejected\nbad was rejected");

    auto* specification = createSpecification({.id = "tool"}, {createParameter({.id = "a"})});
    CommandLineValueProvider provider(1);
    ParameterValueGroup result(nullptr);
    EXPECT_EQ(callProvider(&provider, specification, &result), "CLI 1 1     -a\n-a Description     \n");
    EXPECT_EQ(result.getNumberOfItems(), 1u);
    EXPECT_FALSE(provider.getEnabled());

    ConfigurationException exception("%s", "text");
    EXPECT_EQ(callException(&exception), "text text -1 0");
}

} // namespace
} // namespace kivo::test
