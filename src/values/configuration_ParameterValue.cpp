#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueVisitor.h>

#include "schema/ContractChecks.h"
#include "schema/ItemKinds.h"
#include "schema/LocatedException.h"
#include "schema/NameComparison.h"
#include "schema/NumberText.h"
#include "schema/QuantityText.h"
#include "values/DefaultText.h"
#include "values/ParameterValueImpl.h"

#include <concepts>
#include <limits>
#include <utility>

namespace kivo::configuration {

namespace {

bool parseBoolean(char const* text) {
    auto const number = parseInteger(text);
    return number.isWhole ? static_cast<int>(number.value) != 0 : !equalIgnoringCase(text, "false");
}

int parseInt(char const* text) { return static_cast<int>(parseInteger(text).value); }

/// A number, or the nearest one that fits.
template <std::integral Number>
Number nearest(std::integral auto number) {
    using Limits = std::numeric_limits<Number>;
    return std::in_range<Number>(number) ? static_cast<Number>(number) : (number < 0 ? Limits::min() : Limits::max());
}

/// A text as a 64-bit number; without a text 0.
/// @param index as for ParameterValue::Impl::read()
/// @param state what knows the labels, and the parameter
template <std::integral Number>
Number readWide(unsigned long index, char const* text, auto const& state) {
    if (!text) {
        return 0;
    }
    if (auto const* labels = state.labels()) {
        return nearest<Number>(state.numberOf(*labels, index, text));
    }
    auto const* parameter = state.parameter();
    auto const type = parameter ? parameter->getValueType() : Parameter::STRING_PARAMETER;
    if (type == Parameter::SIZE_PARAMETER) {
        return nearest<Number>(parseSize(text).value_or(0));
    }
    if (type == Parameter::DURATION_PARAMETER) {
        return nearest<Number>(parseDuration(text).value_or(0));
    }
    return std::signed_integral<Number> ? nearest<Number>(parseInteger(text).value)
                                        : nearest<Number>(parseUnsignedInteger(text).value);
}

} // namespace

ParameterValue::ParameterValue(char const* id, char const* value) : ParameterValue(std::make_unique<Impl>(value), id) {}

ParameterValue::ParameterValue(char const* id, char const* value, StoredOrigin const& origin)
    : ParameterValue(std::make_unique<Impl>(value, origin), id) {}

ParameterValue::ParameterValue(Parameter const* parameter, char const* value)
    : ParameterValueItem(std::make_unique<Impl>(value), static_cast<ParameterItem const*>(parameter)),
      mImpl(static_cast<Impl*>(getImpl())) {
    mImpl->mIsBoundToKind = true;
}

ParameterValue::ParameterValue(ParameterValue const& other)
    : ParameterValue(std::make_unique<Impl>(*other.mImpl), other) {}

ParameterValue::ParameterValue(ParameterValue const& other, CopyMethod) : ParameterValue(other) {}

ParameterValue::ParameterValue(std::unique_ptr<Impl> impl, char const* id)
    : ParameterValueItem(std::move(impl), id), mImpl(static_cast<Impl*>(getImpl())) {}

ParameterValue::ParameterValue(std::unique_ptr<Impl> impl, ParameterValue const& other)
    : ParameterValueItem(std::move(impl), other), mImpl(static_cast<Impl*>(getImpl())) {}

ParameterValue& ParameterValue::operator=(ParameterValue const& other) {
    if (this != &other) {
        auto values = other.mImpl->mValues; // from here on only the copy of the id can fail, and it comes first
        ParameterValueItem::operator=(other);
        mImpl->mValues = std::move(values);
        mImpl->mUsingDefaultValue = other.mImpl->mUsingDefaultValue;
    }
    return *this;
}

ParameterValue::~ParameterValue() = default;

char const* ParameterValue::getParameterItemId() const { return ParameterValueItem::getParameterItemId(); }

ParameterValueItem::ItemType ParameterValue::getItemType() const { return PARAMETER_VALUE; }

bool ParameterValue::accept(ParameterValueVisitor& visitor) { return visitor.visitParameterValue(*this); }

ParameterValue* ParameterValue::clone(CopyMethod method) const { return new ParameterValue(*this, method); }

void ParameterValue::assignParameterItem(ParameterItem const* parameterItem) {
    KIVO_REQUIRE(parameterItem != 0);
    if (parameterItem->getItemType() != ParameterItem::PARAMETER) {
        throw located(getStoredOrigin(0),
                      ConfigurationException("\"%s\" must be a parameter", parameterItem->getName()));
    }
    ParameterValueItem::assignParameterItem(parameterItem);
    mImpl->mIsBoundToKind = asParameter(parameterItem);
}

char const* ParameterValue::getValue(unsigned long index, bool ignoreDefault) const {
    auto const& mValues = mImpl->mValues;
    KIVO_REQUIRE(index < mValues.size());
    if (char const* text = mValues[index].get()) {
        return text;
    }
    auto const* parameter = mImpl->parameter();
    if (!parameter || !parameter->isOptional()) {
        return nullptr;
    }
    if (parameter->getValueType() == Parameter::BOOLEAN_PARAMETER) {
        return mValues[index].readAsFlag();
    }
    return ignoreDefault ? nullptr : defaultTextOf(*parameter);
}

bool ParameterValue::getBooleanValue(unsigned long index) const {
    return mImpl->read(index, getValue(index, false), parseBoolean);
}

int ParameterValue::getIntValue(unsigned long index) const {
    return mImpl->read(index, getValue(index, false), parseInt);
}

unsigned int ParameterValue::getUIntValue(unsigned long index) const {
    return static_cast<unsigned int>(mImpl->read(index, getValue(index, false), parseInt));
}

double ParameterValue::getDoubleValue(unsigned long index) const {
    return mImpl->read(index, getValue(index, false), [](char const* text) { return parseDouble(text).value; });
}

std::int64_t ParameterValue::getLongValue(unsigned long index) const {
    return readWide<std::int64_t>(index, getValue(index, false), *mImpl);
}

std::uint64_t ParameterValue::getULongValue(unsigned long index) const {
    return readWide<std::uint64_t>(index, getValue(index, false), *mImpl);
}

unsigned long ParameterValue::getNumberOfValues() const { return mImpl->mValues.size(); }

Parameter const* ParameterValue::getParameter() const { return mImpl->parameter(); }

Parameter::ValueType ParameterValue::getValueType() const {
    auto const* mParameter = mImpl->parameter();
    KIVO_REQUIRE(mParameter != 0);
    return mParameter->getValueType();
}

bool ParameterValue::isUsingDefaultValue() const { return mImpl->mUsingDefaultValue; }

void ParameterValue::setIsUsingDefaultValue(bool usingDefaultValue) { mImpl->mUsingDefaultValue = usingDefaultValue; }

void ParameterValue::addValue(char const* value) { addValueAt(value, StoredOrigin()); }

void ParameterValue::addValueAt(char const* value, StoredOrigin const& origin) { mImpl->mValues.add(value, origin); }

void ParameterValue::setValue(unsigned long index, char const* value) {
    auto& mValues = mImpl->mValues;
    KIVO_REQUIRE(index < mValues.size());
    mValues[index] = ValueText(value);
}

Origin ParameterValue::getOrigin(unsigned long index) const { return getStoredOrigin(index).toOrigin(); }

void ParameterValue::setOrigin(unsigned long index, Origin const& origin) {
    setStoredOrigin(index, StoredOrigin(origin));
}

StoredOrigin const& ParameterValue::getStoredOrigin(unsigned long index) const {
    auto const& mValues = mImpl->mValues;
    KIVO_REQUIRE(index < mValues.size());
    return mValues[index].origin;
}

void ParameterValue::fillOrigins(StoredOrigin const& origin) {
    auto& mValues = mImpl->mValues;
    for (unsigned long i = 0; i < mValues.size(); ++i) {
        if (!mValues[i].origin.isKnown()) {
            mValues[i].origin = origin;
        }
    }
}

void ParameterValue::setStoredOrigin(unsigned long index, StoredOrigin const& origin) {
    auto& mValues = mImpl->mValues;
    KIVO_REQUIRE(index < mValues.size());
    mValues[index].origin = origin;
}

} // namespace kivo::configuration
