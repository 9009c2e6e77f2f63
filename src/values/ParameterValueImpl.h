#pragma once

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterValue.h>

#include "schema/LocatedException.h"
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

    /// A text as a number or truth value: a label's number, or what a conversion makes of it; without a text 0 or
    /// false.
    /// @param index the position of the text, or of the entry that a default stands in for
    template <class Convert>
    auto read(unsigned long index, char const* text, Convert convert) const {
        using Content = decltype(convert(text));
        if (!text) {
            return Content{};
        }
        auto const* labels = enumDefinition();
        return labels ? static_cast<Content>(numberOf(*labels, index, text)) : convert(text);
    }

    /// The number of a label. @param index as for read()
    int numberOf(ParameterEnumDefinition const& labels, unsigned long index, char const* label) const {
        try {
            return labels.getValue(label);
        } catch (ConfigurationException const& fault) {
            throw located(mValues[index].origin, fault);
        }
    }

    bool mUsingDefaultValue = false;
    ValueTexts mValues;
};

} // namespace kivo::configuration
