#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterEnumValue.h>
#include <configuration/Value.h>

#include "support/Notation.h"

#include <gtest/gtest.h>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

/// A parameter whose type is not the one that its base was made with.
struct OwnParameter final : Parameter {
    OwnParameter(ValueType base, ValueType own, char const* text)
        : Parameter("own", "own", "Description", true, false, base, text, nullptr, nullptr, false), mType(own) {}
    ValueType getValueType() const override { return mType; }

    ValueType mType;
};

TEST(OwnParameter, IsReadByItsOwnType) {
    OwnParameter parameter(Parameter::STRING_PARAMETER, Parameter::UINT_PARAMETER, "5");
    EXPECT_EQ(Value(parameter.getDefaultValue(), false).asUnsignedInteger(), 5u);
    ParameterValue const given(&parameter, nullptr);
    EXPECT_EQ(Value(&given, false).asUnsignedInteger(), 5u);
    parameter.mType = Parameter::BOOLEAN_PARAMETER;
    EXPECT_TRUE(Value(&given, false).asBoolean());
    EXPECT_EQ(textsOf(given), "1");
}

/// A value of a caller's own class, which replaces one of the readers.
template <class Base>
struct OwnValue final : Base {
    using Base::Base;
    int getIntValue(unsigned long) const override { return 99; }
};

TEST(OwnValue, ReplacesOneReaderWithoutTheOthers) {
    OwnValue<ParameterValue> const own("id", "4");
    ParameterEnumDefinition labels("labels");
    labels.addEnumValue("four", 4);
    OwnValue<ParameterEnumValue> label("id", "four");
    label.setEnumDefinition(labels);
    for (ParameterValue const* each : std::vector<ParameterValue const*>{&own, &label}) {
        EXPECT_EQ(each->getIntValue(0), 99);
        EXPECT_EQ(each->getUIntValue(0), 4u);
        EXPECT_EQ(each->getDoubleValue(0), 4.0);
        EXPECT_TRUE(each->getBooleanValue(0));
    }
}

} // namespace
