#include "kernel/kvProcessInit.h"

#include "values/ValueChecks.h"

#include <configuration/ParameterErrors.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ParameterValue.h>

#include "schema/ContractChecks.h"
#include "schema/Rule.h"
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
        errors.addFault(Rule::INVALID_VALUE, origin, "%s",
                        composeInvalidValueMessage(parameterName, valueText, type.noun).c_str());
    }
}

void checkValue(ParameterValue const* value, Parameter::ValueType valueType, ParameterErrors& errors,
                ParameterValidator const* validator, bool checkAll) {
    KIVO_REQUIRE(value != 0);
    auto const* parameter = value->getParameter();
    char const* const name = parameter ? parameter->getName() : nullptr;
    bool isComplete = true;
    for (unsigned long i = 0; i < value->getNumberOfValues() && (isComplete || checkAll); ++i) {
        char const* text = value->getValue(i, true);
        if (text) {
            checkText(name, text, value->getStoredOrigin(i), valueType, errors);
        } else {
            errors.addFault(Rule::MISSING_VALUE, value->getStoredOrigin(i), "Missing value for the \"%s\" parameter",
                            name ? name : "");
            isComplete = false;
        }
    }
    if (validator && isComplete) {
        if (std::unique_ptr<char[]> const message{validator->validate(*value)}) {
            errors.addFault(Rule::REJECTED_VALUE, value->getStoredOrigin(value->getNumberOfValues() - 1), "%s",
                            message.get());
        }
    }
}

} // namespace kivo::configuration
