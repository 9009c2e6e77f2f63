#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterValue.h>
#include <configuration/Value.h>

#include "schema/ContractChecks.h"
#include "schema/NumberText.h"
#include "schema/StoredOrigin.h"
#include "schema/ValueTypes.h"
#include "values/ValueChecks.h"

#include <string>

namespace kivo::configuration {

class Value::Impl {
public:
    ParameterValue const* mValue;
};

namespace {

ParameterValue const& notNull(ParameterValue const* value) {
    if (!value) {
        throw ConfigurationException("Value is null");
    }
    return *value;
}

// One function for each condition, since the condition is the text of the exception.

ParameterValue const& booleanValue(ParameterValue const* mValue) {
    static_cast<void>(notNull(mValue));
    KIVO_REQUIRE(mValue->getValueType() == Parameter::BOOLEAN_PARAMETER);
    return *mValue;
}

ParameterValue const& stringValue(ParameterValue const* mValue) {
    static_cast<void>(notNull(mValue));
    KIVO_REQUIRE(mValue->getValueType() == Parameter::STRING_PARAMETER);
    return *mValue;
}

ParameterValue const& integerValue(ParameterValue const* mValue) {
    static_cast<void>(notNull(mValue));
    KIVO_REQUIRE(mValue->getValueType() == Parameter::INT_PARAMETER ||
                 mValue->getValueType() == Parameter::ENUM_PARAMETER);
    return *mValue;
}

ParameterValue const& unsignedIntegerValue(ParameterValue const* mValue) {
    static_cast<void>(notNull(mValue));
    KIVO_REQUIRE(mValue->getValueType() == Parameter::UINT_PARAMETER);
    return *mValue;
}

ParameterValue const& doubleValue(ParameterValue const* mValue) {
    static_cast<void>(notNull(mValue));
    KIVO_REQUIRE(mValue->getValueType() == Parameter::DOUBLE_PARAMETER);
    return *mValue;
}

ParameterValue const& longValue(ParameterValue const* mValue) {
    static_cast<void>(notNull(mValue));
    KIVO_REQUIRE(mValue->getValueType() == Parameter::LONG_PARAMETER ||
                 mValue->getValueType() == Parameter::SIZE_PARAMETER ||
                 mValue->getValueType() == Parameter::DURATION_PARAMETER);
    return *mValue;
}

ParameterValue const& unsignedLongValue(ParameterValue const* mValue) {
    static_cast<void>(notNull(mValue));
    KIVO_REQUIRE(mValue->getValueType() == Parameter::ULONG_PARAMETER ||
                 mValue->getValueType() == Parameter::SIZE_PARAMETER ||
                 mValue->getValueType() == Parameter::DURATION_PARAMETER);
    return *mValue;
}

/// A number as a text of the value's type, which may not have a text for it.
template <class Number>
std::string composeText(ParameterValue const& value, Number number) {
    auto const type = value.getValueType();
    auto const text = std::to_string(number) + (type == Parameter::DURATION_PARAMETER ? "ms" : "");
    if (auto const& traits = traitsOf(type); !traits.accepts(text.c_str())) {
        char const* const name = value.getParameter()->getName();
        throw ConfigurationException("%s", composeInvalidValueMessage(name, text.c_str(), traits.noun).c_str());
    }
    return text;
}

/// Writes into the shared tree: the handle's view is const, the tree is not.
/// @param value  checked by the caller, before the handle is asked for its position
void write(Value const& handle, ParameterValue const& value, char const* text) {
    auto& written = const_cast<ParameterValue&>(value);
    auto const index = handle.getCurrentValueIndex();
    written.setValue(index, text);
    written.setStoredOrigin(index, StoredOrigin::ofApplication());
}

} // namespace

Value::Value(ParameterValue const* value, bool multiValued) : mImpl(new Impl{value}) {
    auto const* mValue = value;
    if (mValue && !multiValued) {
        KIVO_REQUIRE(mValue->getParameterItem() != 0);
        KIVO_REQUIRE(mValue->getNumberOfValues() == 1);
    }
}

Value::Value(Value const& other) : mImpl(std::make_unique<Impl>(*other.mImpl)) {}

Value& Value::operator=(Value const& other) {
    *mImpl = *other.mImpl;
    return *this;
}

Value::~Value() = default;

bool Value::asBoolean() const { return booleanValue(mImpl->mValue).getBooleanValue(getCurrentValueIndex()); }

char const* Value::asString() const { return stringValue(mImpl->mValue).getValue(getCurrentValueIndex(), false); }

int Value::asInteger() const { return integerValue(mImpl->mValue).getIntValue(getCurrentValueIndex()); }

unsigned int Value::asUnsignedInteger() const {
    return unsignedIntegerValue(mImpl->mValue).getUIntValue(getCurrentValueIndex());
}

double Value::asDouble() const { return doubleValue(mImpl->mValue).getDoubleValue(getCurrentValueIndex()); }

Value& Value::setBoolean(bool value) {
    write(*this, booleanValue(mImpl->mValue), value ? "1" : "0");
    return *this;
}

Value& Value::setString(char const* value) {
    write(*this, stringValue(mImpl->mValue), value);
    return *this;
}

Value& Value::setInteger(int value) {
    write(*this, integerValue(mImpl->mValue), std::to_string(value).c_str());
    return *this;
}

Value& Value::setUnsignedInteger(unsigned int value) {
    write(*this, unsignedIntegerValue(mImpl->mValue), std::to_string(value).c_str());
    return *this;
}

Value& Value::setDouble(double value) {
    write(*this, doubleValue(mImpl->mValue), formatDouble(value).c_str());
    return *this;
}

std::int64_t Value::asLong() const { return longValue(mImpl->mValue).getLongValue(getCurrentValueIndex()); }

std::uint64_t Value::asUnsignedLong() const {
    return unsignedLongValue(mImpl->mValue).getULongValue(getCurrentValueIndex());
}

Value& Value::setLong(std::int64_t value) {
    auto const& target = longValue(mImpl->mValue);
    write(*this, target, composeText(target, value).c_str());
    return *this;
}

Value& Value::setUnsignedLong(std::uint64_t value) {
    auto const& target = unsignedLongValue(mImpl->mValue);
    write(*this, target, composeText(target, value).c_str());
    return *this;
}

unsigned long Value::getCurrentValueIndex() const { return 0; }

ParameterValue const* Value::getParameterValue() const { return mImpl->mValue; }

bool Value::isNull() const { return !mImpl->mValue; }

bool Value::isExcluded() const { return isNull(); }

bool Value::isDefaultValue() const { return mImpl->mValue && mImpl->mValue->isUsingDefaultValue(); }

Origin Value::getOrigin() const { return notNull(mImpl->mValue).getOrigin(getCurrentValueIndex()); }

unsigned long Value::getNumberOfValues() const { return mImpl->mValue ? mImpl->mValue->getNumberOfValues() : 0; }

} // namespace kivo::configuration
