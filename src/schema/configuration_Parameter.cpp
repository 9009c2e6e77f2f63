#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationParameterException.h>
#include <configuration/Manager.h>
#include <configuration/Memory.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/ParameterVisitor.h>

#include "schema/ContractChecks.h"
#include "schema/ParameterItemImpl.h"
#include "schema/StoredOrigin.h"
#include "schema/ValueTypes.h"
#include "values/ValueChecks.h"

namespace kivo::configuration {

class Parameter::Impl final : public ParameterItem::Impl {
public:
    Impl(ValueType valueType, bool hidden) : mHidden(hidden), mValueType(valueType) {}

    bool mHidden;
    ValueType mValueType;
    std::unique_ptr<ParameterValue> mDefaultValue;
    ParameterValidator const* mValidator = nullptr;
    ParameterEnumDefinition const* mEnumDefinition = nullptr;
    std::unique_ptr<ParameterValueGroup> mValidatorConfiguration;
    std::unique_ptr<char[]> mValueName; // null for an empty one, too
};

namespace {

ParameterValidator const* findValidator(char const* name) {
    if (!name) {
        return nullptr;
    }
    auto const* validator = Manager::getInstance()->getValidator(name);
    if (!validator) {
        throw ConfigurationException("Validator \"%s\" was not found", name);
    }
    return validator;
}

std::unique_ptr<ParameterValue> makeDefaultValue(Parameter const& parameter, char const* text,
                                                 Parameter::ValueType type, ParameterValidator const* validator) {
    auto value = std::make_unique<ParameterValue>(&parameter, text);
    value->setIsUsingDefaultValue(true);
    value->setStoredOrigin(0, StoredOrigin::ofDefault());
    if (*text != '\0') {
        ParameterErrors errors;
        checkValue(value.get(), type, errors, validator);
        if (errors.getNumberOfErrors() > 0) {
            throw ConfigurationParameterException(errors, "\"%s\" is not a valid default value for parameter \"%s\"",
                                                  text, parameter.getName());
        }
    }
    return value;
}

} // namespace

Parameter::Parameter(char const* id, char const* name, char const* description, bool optional, bool unbounded,
                     ValueType valueType, char const* defaultValue, char const* valueName, char const* validatorName,
                     bool hidden)
    : ParameterItem(std::make_unique<Impl>(valueType, hidden), id, name, description, optional, unbounded),
      mImpl(static_cast<Impl*>(getImpl())) {
    mImpl->mValidator = findValidator(validatorName);
    if (optional && !defaultValue) {
        defaultValue = traitsOf(valueType).implicitDefault;
        if (!defaultValue && !unbounded) {
            throw ConfigurationException("Optional parameter \"%s\" is missing a default value", name);
        }
    }
    if (defaultValue) {
        mImpl->mDefaultValue = makeDefaultValue(*this, defaultValue, valueType, mImpl->mValidator);
    }
    if (valueName && *valueName != '\0') {
        mImpl->mValueName.reset(cloneString(valueName));
    }
}

Parameter::~Parameter() = default;

ParameterItem::ItemType Parameter::getItemType() const { return PARAMETER; }

bool Parameter::isOptional() const { return ParameterItem::isOptional(); }

bool Parameter::isUnbounded() const { return ParameterItem::isUnbounded(); }

char const* Parameter::getId() const { return ParameterItem::getId(); }

char const* Parameter::getName() const { return ParameterItem::getName(); }

char const* Parameter::getDescription() const { return ParameterItem::getDescription(); }

void Parameter::setDescription(char const* description) { ParameterItem::setDescription(description); }

bool Parameter::accept(ParameterVisitor& visitor) const { return visitor.visitParameter(*this); }

bool Parameter::isSpecialized() const { return false; }

char const* Parameter::getItemTypeName() const { return "Parameter"; }

char const* Parameter::getValueName() const { return mImpl->mValueName.get(); }

Parameter::ValueType Parameter::getValueType() const { return mImpl->mValueType; }

ParameterValue const* Parameter::getDefaultValue() const { return mImpl->mDefaultValue.get(); }

void Parameter::setEnumDefinition(ParameterEnumDefinition const* enumDef) {
    KIVO_REQUIRE(enumDef != 0);
    if (mImpl->mValueType != ENUM_PARAMETER) {
        throw ConfigurationException("\"%s\" is not an enumeration parameter", getName());
    }
    mImpl->mEnumDefinition = enumDef;
}

ParameterEnumDefinition const* Parameter::getEnumDefinition() const { return mImpl->mEnumDefinition; }

ParameterValidator const* Parameter::getValidator() const { return mImpl->mValidator; }

bool Parameter::isHidden() const { return mImpl->mHidden; }

void Parameter::addValidatorConfigurationParameterValue(char const* name, char const* value) {
    KIVO_REQUIRE(name != 0 && strlen(name) > 0);
    KIVO_REQUIRE(value != 0);
    if (!mImpl->mValidatorConfiguration) {
        mImpl->mValidatorConfiguration = std::make_unique<ParameterValueGroup>(name);
    }
    mImpl->mValidatorConfiguration->addValue(name, value);
}

ParameterValueGroup const* Parameter::getValidatorConfiguration() const { return mImpl->mValidatorConfiguration.get(); }

void Parameter::setDefaultOrigin(StoredOrigin const& origin) { mImpl->mDefaultValue->setStoredOrigin(0, origin); }

Parameter* Parameter::Create(char const* id, char const* name, char const* description, bool optional, bool unbounded,
                             ValueType valueType, char const* defaultValue, char const* valueName,
                             char const* validatorName, bool hidden) {
    auto* manager = Manager::getInstance();
    if (manager->hasParameterItem(id, PARAMETER)) {
        throw ConfigurationException("Parameter id \"%s\" is not unique", id);
    }
    auto parameter = std::make_unique<Parameter>(id, name, description, optional, unbounded, valueType, defaultValue,
                                                 valueName, validatorName, hidden);
    manager->addParameterItem(parameter.get());
    return parameter.release();
}

} // namespace kivo::configuration
