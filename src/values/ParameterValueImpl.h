#pragma once

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterValue.h>

#include "values/ParameterValueItemImpl.h"
#include "values/ValueText.h"

namespace kivo::configuration {

/// The state of a value.
class ParameterValue::Impl : public ParameterValueItem::Impl {
public:
    explicit Impl(char const* value, StoredOrigin const& origin = {}) : mValues(value, origin) {}
    explicit Impl(Impl const& other)
        : ParameterValueItem::Impl(), mUsingDefaultValue(other.mUsingDefaultValue), mValues(other.mValues) {}

    /// The parameter that the value is bound to, or null.
    Parameter const* parameter() const {
        return mIsBoundToKind ? static_cast<Parameter const*>(mParameterItem) : nullptr;
    }

    /// The labels through which the texts are read, or null.
    ParameterEnumDefinition const* enumDefinition() const {
        auto const* bound = parameter();
        return bound && bound->getValueType() == Parameter::ENUM_PARAMETER ? bound->getEnumDefinition() : nullptr;
    }

    /// As enumDefinition(), or the labels that the value has by itself.
    virtual ParameterEnumDefinition const* labels() const { return enumDefinition(); }

    /// The number of a label that is the text at a position. What is thrown for a label that does not exist says where
    /// the text was given.
    int numberOf(ParameterEnumDefinition const& labels, char const* text, unsigned long index) const {
        try {
            return labels.getValue(text);
        } catch (ConfigurationException& fault) {
            fault.setOrigin(mValues[index].origin.toOrigin());
            throw;
        }
    }

    /// The text at a position as a number or truth value: a label's number, or what a conversion makes of it; without a
    /// text 0 or false.
    template <class Convert>
    auto read(char const* text, unsigned long index, Convert convert) const {
        using Content = decltype(convert(text));
        if (!text) {
            return Content{};
        }
        auto const* labels = enumDefinition();
        return labels ? static_cast<Content>(numberOf(*labels, text, index)) : convert(text);
    }

    bool mUsingDefaultValue = false;
    ValueTexts mValues;
};

} // namespace kivo::configuration
