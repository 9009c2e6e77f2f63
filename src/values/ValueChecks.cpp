#include "kernel/kvProcessInit.h"

#include "values/ValueChecks.h"

#include <configuration/ParameterErrors.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ParameterValue.h>

#include "schema/ContractChecks.h"
#include "schema/StoredOrigin.h"
#include "schema/ValueTypes.h"

#include <memory>

namespace kivo::configuration {

std::string composeInvalidValueMessage(char const* parameterName, char const* valueText, char const* typeName) {
    std::string message;
    if (parameterName) {
        message.append(parameterName).append(": ");
    }
    return message.append("\"").append(valueText).append("\" is not a valid ").append(typeName);
}

void checkText(char const* parameterName, char const* valueText, StoredOrigin const& origin,
               Parameter::ValueType valueType, ParameterErrors& errors) {
    KIVO_REQUIRE(valueText != 0);
    if (auto const& type = traitsOf(valueType); !type.accepts(valueText)) {
        errors.addErrorAt(origin.toOrigin(), "%s",
                          composeInvalidValueMessage(parameterName, valueText, type.noun).c_str());
    }
}

void checkValue(ParameterValue const* value, Parameter::ValueType valueType, ParameterErrors& errors,
                ParameterValidator const* validator) {
    KIVO_REQUIRE(value != 0);
    auto const* parameter = value->getParameter();
    char const* const name = parameter ? parameter->getName() : nullptr;
    for (unsigned long i = 0; i < value->getNumberOfValues(); ++i) {
        char const* text = value->getValue(i, true);
        if (!text) {
            errors.addErrorAt(value->getOrigin(i), "Missing value for the \"%s\" parameter", name ? name : "");
            return;
        }
        checkText(name, text, value->getStoredOrigin(i), valueType, errors);
    }
    if (validator) {
        if (std::unique_ptr<char[]> const message{validator->validate(*value)}) {
            errors.addErrorAt(value->getOrigin(value->getNumberOfValues() - 1), "%s", message.get());
        }
    }
}

} // namespace kivo::configuration
