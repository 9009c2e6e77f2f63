#include <configuration/CommandLineValueProvider.h>
#include <configuration/Manager.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueVisitor.h>
#include <configuration/ParameterVisitor.h>
#include <configuration/Value.h>
#include <configuration/ValueGroup.h>
#include <kernel/kvException.h>

#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>

namespace kivo::test {
namespace {

using namespace configuration;

/// The position of a virtual operation in its class's table; a number beyond all tables when it is not virtual, or when
/// its class has a base before the one that has the table.
template <class Member>
std::uintptr_t slotOf(Member member) {
    std::uintptr_t words[2];
    static_assert(sizeof(words) == sizeof(member));
    std::memcpy(words, &member, sizeof(words));
#if defined(__aarch64__)
    auto const offset = words[0];
#else
    auto const offset = words[0] - 1; // an odd word marks a virtual operation
#endif
    return offset / sizeof(void*) + words[1] * 1000;
}

/// Expects these operations to stand one after the other. The destructor's two slots come first.
template <class... Members>
void expectFrom(std::uintptr_t first, Members... members) {
    for (auto const slot : {slotOf(members)...}) {
        EXPECT_EQ(slot, first++);
    }
}

TEST(Slots, StandInTheirOrder) {
    using Item = ParameterItem;
    using Provider = ValueProvider;
    struct ValueItem : ParameterValueItem {
        static auto assign() { return &ValueItem::assignParameterItem; }
    };
    using Text = char const*;
    expectFrom(2, &Item::getItemType, &Item::isOptional, &Item::isUnbounded, &Item::getId, &Item::getName,
               &Item::getDescription, &Item::setDescription, &Item::accept, &Item::isSpecialized,
               &Parameter::getItemTypeName, &Parameter::getValueName, &Parameter::getValueType,
               &Parameter::getDefaultValue, &Parameter::setEnumDefinition, &Parameter::getEnumDefinition,
               &Parameter::getValidator);
    expectFrom(11, &ParameterGroup::getItemTypeName);
    expectFrom(2, &ParameterVisitor::visitGroupStart, &ParameterVisitor::visitGroupMiddle,
               &ParameterVisitor::visitGroupEnd, &ParameterVisitor::visitParameter);
    expectFrom(2, &ParameterValueVisitor::visitGroupStart, &ParameterValueVisitor::visitGroupEnd,
               &ParameterValueVisitor::visitParameterValue);
    expectFrom(2, &ValueItem::getParameterItemId, &ValueItem::getItemType, &ValueItem::accept, &ValueItem::clone,
               ValueItem::assign(), &ParameterValue::getValue, &ParameterValue::getBooleanValue,
               &ParameterValue::getIntValue, &ParameterValue::getUIntValue, &ParameterValue::getDoubleValue);
    expectFrom(2, &Value::asBoolean, &Value::asString, &Value::asInteger, &Value::asUnsignedInteger, &Value::asDouble,
               &Value::setBoolean, &Value::setString, &Value::setInteger, &Value::setUnsignedInteger, &Value::setDouble,
               &Value::getCurrentValueIndex, &Value::getParameterValue);
    expectFrom(2, &ValueGroup::getCurrentValueGroup);
    expectFrom(2,
               static_cast<char* (ParameterValidator::*)(ParameterValue const&) const>(&ParameterValidator::validate),
               static_cast<char* (ParameterValidator::*)(Text) const>(&ParameterValidator::validate));
    expectFrom(2, &Provider::getName, &Provider::getValues, &Provider::composeHelpMessage,
               &Provider::composeUsageMessage, &Provider::reset,
               static_cast<void (Provider::*)(ParameterValueGroup const&, int)>(&Provider::setArguments),
               static_cast<void (Provider::*)(Text, int)>(&Provider::setArguments),
               static_cast<void (Provider::*)(int, Text const*, int)>(&Provider::setArguments),
               &CommandLineValueProvider::removeParameter);
    expectFrom(2, &kvException::what, &kvException::operator Text, &kvException::get_kind, &kvException::reportErrors,
               &kvException::asKernelException);
    expectFrom(2, &Manager::enableConfiguration);
}

} // namespace
} // namespace kivo::test
