#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Manager.h>
#include <configuration/ParameterSpecialization.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ParameterValue.h>

#include "schema/ContractChecks.h"
#include "schema/ItemKinds.h"
#include "schema/StoredOrigin.h"
#include "values/DefaultText.h"

namespace kivo::configuration {

namespace {

Parameter const& checked(Parameter const* base) {
    KIVO_REQUIRE(base != 0);
    return *base;
}

char const* validatorNameOf(Parameter const& parameter) {
    auto const* validator = parameter.getValidator();
    return validator ? validator->getName() : nullptr;
}

} // namespace

ParameterSpecialization::ParameterSpecialization(Parameter const* base, char const* description, bool optional,
                                                 bool unbounded, char const* defaultValue, bool hidden)
    : ParameterSpecialization(checked(base), description, optional, unbounded, defaultValue, hidden) {}

ParameterSpecialization::ParameterSpecialization(Parameter const& base, char const* description, bool optional,
                                                 bool unbounded, char const* defaultValue, bool hidden)
    : Parameter(base.getId(), base.getName(), description ? description : base.getDescription(), optional, unbounded,
                base.getValueType(), defaultValue, base.getValueName(), validatorNameOf(base), hidden) {}

ParameterSpecialization::~ParameterSpecialization() = default;

bool ParameterSpecialization::isSpecialized() const { return true; }

ParameterSpecialization* ParameterSpecialization::Create(char const* id, char const* description, bool optional,
                                                         bool unbounded, char const* defaultValue, bool hidden) {
    auto* manager = Manager::getInstance();
    auto const* base = asParameter(manager->getParameterItem(id, PARAMETER));
    if (!base) {
        throw ConfigurationException("Parameter to specialize \"%s\" was not found", id);
    }
    char const* const inheritedDefault = defaultValue ? nullptr : defaultTextOf(*base);
    auto specialization = std::make_unique<ParameterSpecialization>(
        base, description, optional, unbounded, defaultValue ? defaultValue : inheritedDefault, hidden);
    if (inheritedDefault) {
        specialization->setDefaultOrigin(base->getDefaultValue()->getStoredOrigin(0));
    }
    if (auto const* definition = base->getEnumDefinition()) {
        specialization->setEnumDefinition(definition);
    }
    manager->addParameterItemSpecialization(specialization.get());
    return specialization.release();
}

} // namespace kivo::configuration
