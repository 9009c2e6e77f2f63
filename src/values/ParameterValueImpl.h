#pragma once

#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterValue.h>

#include "values/ParameterValueItemImpl.h"
#include "values/ValueText.h"

namespace kivo::configuration {

/// The state of a value. The first text and what readers need of the parameter stand beside each other: a read touches
/// one block of memory.
class ParameterValue::Impl : public ParameterValueItem::Impl {
public:
    explicit Impl(char const* value) : mValues(value) {}
    explicit Impl(Impl const& other)
        : ParameterValueItem::Impl(),
          mValueType(other.mValueType),
          mUsingDefaultValue(other.mUsingDefaultValue),
          mValues(other.mValues) {}

    /// The parameter that the value is bound to, or null.
    Parameter const* parameter() const { return static_cast<Parameter const*>(mParameterItem); }

    /// The labels through which the texts are read, or null.
    ParameterEnumDefinition const* enumDefinition() const {
        return mValueType == Parameter::ENUM_PARAMETER && mParameterItem ? parameter()->getEnumDefinition() : nullptr;
    }

    Parameter::ValueType mValueType : 8 = Parameter::STRING_PARAMETER; // of the parameter; without one not looked at
    bool mUsingDefaultValue = false;
    ValueTexts mValues;
};

} // namespace kivo::configuration
