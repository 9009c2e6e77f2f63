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
#include "schema/FormerNames.h"
#include "schema/ParameterItemImpl.h"
#include "schema/ParameterRegistration.h"
#include "schema/Rule.h"
#include "schema/StoredOrigin.h"
#include "schema/ValueTypes.h"
#include "values/DefaultText.h"
#include "values/ValueChecks.h"

#include <optional>
#include <string>

namespace kivo::configuration {

class Parameter::Impl final : public ParameterItem::Impl {
public:
    /// What specializations take over, besides the arguments of the constructor.
    struct Attributes {
        std::optional<std::string> minimum;
        std::optional<std::string> maximum;
        std::optional<std::string> deprecation;
        std::optional<std::string> formerName;
        bool isSensitive = false;
    };

    /// What few parameters have: it takes one pointer of those that have none of it.
    struct Extras {
        Attributes attributes;
        std::unique_ptr<ParameterValueGroup> validatorConfiguration;
    };

    Impl(ValueType valueType, bool hidden) : mHidden(hidden), mValueType(valueType) {}

    Extras& extras() {
        if (!mExtras) {
            mExtras = std::make_unique<Extras>();
        }
        return *mExtras;
    }

    /// One of the attributes, or null.
    char const* text(std::optional<std::string> Attributes::*attribute) const {
        return mExtras && mExtras->attributes.*attribute ? (mExtras->attributes.*attribute)->c_str() : nullptr;
    }

    bool mHidden;
    ValueType mValueType;
    std::unique_ptr<ParameterValue> mDefaultValue;
    ParameterValidator const* mValidator = nullptr;
    ParameterEnumDefinition const* mEnumDefinition = nullptr;
    std::unique_ptr<Extras> mExtras;    // null for most
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

/// @param role   what the text is to the parameter
/// @param origin where the text is declared; unknown: whoever reads the declaration knows
void requireWithin(Bounds const& bounds, Parameter const& parameter, char const* text, char const* role,
                   StoredOrigin const& origin = {}) {
    if (auto const fault = describeBoundFault(text, parameter.getValueType(), bounds); !fault.empty()) {
        char const* const name = parameter.getName();
        ParameterErrors errors;
        errors.addFault(Rule::OUT_OF_RANGE, origin, "%s", composeBoundMessage(name, text, fault).c_str());
        throw ConfigurationParameterException(errors, "\"%s\" is not a valid %s for parameter \"%s\": it is %s", text,
                                              role, name, fault.c_str());
    }
}

/// An empty default is accepted, whatever the type and the bounds.
void requireDefaultWithin(Bounds const& bounds, Parameter const& parameter) {
    if (char const* text = defaultTextOf(parameter); text && *text != '\0') {
        requireWithin(bounds, parameter, text, "default value", parameter.getDefaultValue()->getStoredOrigin(0));
    }
}

void requireNumber(Parameter const& parameter, char const* text, char const* role) {
    auto const& type = traitsOf(parameter.getValueType());
    char const* const name = parameter.getName();
    if (!type.compare) {
        throw ConfigurationException("\"%s\" is not a parameter for numbers", name);
    }
    if (*text == '\0' || !type.accepts(text)) {
        ParameterErrors errors;
        errors.addFault(Rule::INVALID_VALUE, {}, "%s", composeInvalidValueMessage(name, text, type.noun).c_str());
        throw ConfigurationParameterException(errors, "\"%s\" is not a valid %s for parameter \"%s\"", text, role,
                                              name);
    }
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
    auto& configuration = mImpl->extras().validatorConfiguration;
    if (!configuration) {
        configuration = std::make_unique<ParameterValueGroup>(name);
    }
    configuration->addValue(name, value);
}

ParameterValueGroup const* Parameter::getValidatorConfiguration() const {
    return mImpl->mExtras ? mImpl->mExtras->validatorConfiguration.get() : nullptr;
}

void Parameter::setMinimum(char const* minimum) {
    KIVO_REQUIRE(minimum != 0);
    Bounds const bounds{minimum, getMaximum()};
    requireNumber(*this, minimum, "minimum");
    requireWithin(bounds, *this, minimum, "minimum");
    requireDefaultWithin(bounds, *this);
    mImpl->extras().attributes.minimum = minimum;
}

void Parameter::setMaximum(char const* maximum) {
    KIVO_REQUIRE(maximum != 0);
    Bounds const bounds{getMinimum(), maximum};
    requireNumber(*this, maximum, "maximum");
    requireWithin(bounds, *this, maximum, "maximum");
    requireDefaultWithin(bounds, *this);
    mImpl->extras().attributes.maximum = maximum;
}

char const* Parameter::getMinimum() const { return mImpl->text(&Impl::Attributes::minimum); }

char const* Parameter::getMaximum() const { return mImpl->text(&Impl::Attributes::maximum); }

void Parameter::setSensitive(bool sensitive) {
    if (sensitive != isSensitive()) {
        mImpl->extras().attributes.isSensitive = sensitive;
    }
}

bool Parameter::isSensitive() const { return mImpl->mExtras && mImpl->mExtras->attributes.isSensitive; }

void Parameter::setDeprecation(char const* advice) {
    KIVO_REQUIRE(advice && strlen(advice) > 0);
    mImpl->extras().attributes.deprecation = advice;
}

char const* Parameter::getDeprecation() const { return mImpl->text(&Impl::Attributes::deprecation); }

void Parameter::setFormerName(char const* formerName) {
    KIVO_REQUIRE(formerName && strlen(formerName) > 0);
    mImpl->extras().attributes.formerName = formerName;
    noteFormerName();
}

char const* Parameter::getFormerName() const { return mImpl->text(&Impl::Attributes::formerName); }

void Parameter::takeAttributes(Parameter const& base) {
    if (auto const& extras = base.mImpl->mExtras) {
        requireDefaultWithin({base.getMinimum(), base.getMaximum()}, *this);
        mImpl->extras().attributes = extras->attributes;
    }
}

void Parameter::setDefaultOrigin(StoredOrigin const& origin) { mImpl->mDefaultValue->setStoredOrigin(0, origin); }

Parameter* Parameter::Create(char const* id, char const* name, char const* description, bool optional, bool unbounded,
                             ValueType valueType, char const* defaultValue, char const* valueName,
                             char const* validatorName, bool hidden) {
    return ParameterRegistration::add(id, [=] {
        return std::make_unique<Parameter>(id, name, description, optional, unbounded, valueType, defaultValue,
                                           valueName, validatorName, hidden);
    });
}

} // namespace kivo::configuration
