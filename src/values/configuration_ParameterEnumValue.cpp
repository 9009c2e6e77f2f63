#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterEnumValue.h>

#include "values/ParameterValueImpl.h"

namespace kivo::configuration {

class ParameterEnumValue::Impl final : public ParameterValue::Impl {
public:
    explicit Impl(char const* value) : ParameterValue::Impl(value) {}
    explicit Impl(Impl const& other) : ParameterValue::Impl(other), mEnumDefinition(other.mEnumDefinition) {}

    ParameterEnumDefinition const* labels() const override {
        if (!mEnumDefinition) {
            throw ConfigurationException("Must set the enumeration defintion first");
        }
        return mEnumDefinition;
    }

    ParameterEnumDefinition const* mEnumDefinition = nullptr;
};

ParameterEnumValue::ParameterEnumValue(char const* id, char const* value)
    : ParameterValue(std::make_unique<Impl>(value), id), mImpl(static_cast<Impl*>(getImpl())) {}

ParameterEnumValue::ParameterEnumValue(ParameterEnumValue const& other)
    : ParameterValue(std::make_unique<Impl>(*other.mImpl), other), mImpl(static_cast<Impl*>(getImpl())) {}

ParameterEnumValue& ParameterEnumValue::operator=(ParameterEnumValue const& other) {
    ParameterValue::operator=(other);
    mImpl->mEnumDefinition = other.mImpl->mEnumDefinition;
    return *this;
}

ParameterEnumValue::~ParameterEnumValue() = default;

ParameterEnumValue* ParameterEnumValue::clone(CopyMethod) const { return new ParameterEnumValue(*this); }

bool ParameterEnumValue::getBooleanValue(unsigned long index) const {
    return ParameterEnumValue::getIntValue(index) != 0;
}

int ParameterEnumValue::getIntValue(unsigned long index) const {
    auto const* label = getValue(index, false);
    return mImpl->numberOf(*mImpl->labels(), index, label);
}

unsigned int ParameterEnumValue::getUIntValue(unsigned long index) const {
    return static_cast<unsigned int>(ParameterEnumValue::getIntValue(index));
}

double ParameterEnumValue::getDoubleValue(unsigned long index) const { return ParameterEnumValue::getIntValue(index); }

void ParameterEnumValue::setEnumDefinition(ParameterEnumDefinition const& enumDefinition) {
    mImpl->mEnumDefinition = &enumDefinition;
}

ParameterEnumDefinition const* ParameterEnumValue::getEnumDefinition() const { return mImpl->mEnumDefinition; }

} // namespace kivo::configuration
