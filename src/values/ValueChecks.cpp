#include "kernel/kvProcessInit.h"

#include "values/ValueChecks.h"

#include <configuration/ParameterErrors.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ParameterValue.h>

#include "schema/ContractChecks.h"
#include "schema/Rule.h"
#include "schema/SecretMask.h"
#include "schema/StoredOrigin.h"
#include "schema/ValueTypes.h"

#include <memory>

namespace kivo::configuration {

namespace {

/// Adds a fault of a text. A secret one is never sought in a finished message: it could be any part of it.
/// @param compose gives the message for a text
template <class Compose>
void addTextFault(ParameterErrors& errors, Rule rule, StoredOrigin const& origin, char const* text, bool isSecret,
                  Compose compose) {
    errors.addFault(rule, origin, "%s", compose(text).c_str());
    if (isSecret) {
        errors.setMaskedError(errors.getNumberOfErrors() - 1, compose(SECRET_MASK));
    }
}

/// A validator's words may tell any part of a text, or something of it in other words.
std::string composeMaskedRejection(char const* parameterName, ParameterValidator const& validator) {
    return std::string(parameterName) + ": \"" + SECRET_MASK + "\" is refused by the validator \"" +
           validator.getName() + '"';
}

} // namespace

std::string composeInvalidValueMessage(char const* parameterName, char const* valueText, char const* typeName) {
    std::string message;
    if (parameterName) {
        message.append(parameterName).append(": ");
    }
    return message.append("\"").append(valueText).append("\" is not a valid ").append(typeName);
}

void checkText(char const* parameterName, char const* valueText, StoredOrigin const& origin,
               Parameter::ValueType valueType, ParameterErrors& errors, bool isSecret) {
    KIVO_REQUIRE(valueText != 0);
    if (auto const& type = traitsOf(valueType); !type.accepts(valueText)) {
        addTextFault(errors, Rule::INVALID_VALUE, origin, valueText, isSecret,
                     [&](char const* text) { return composeInvalidValueMessage(parameterName, text, type.noun); });
    }
}

std::string describeBoundFault(char const* valueText, Parameter::ValueType valueType, Bounds const& bounds) {
    auto const [minimum, maximum] = bounds;
    auto const& type = traitsOf(valueType);
    if ((!minimum && !maximum) || !type.compare || !type.accepts(valueText)) {
        return "";
    }
    if (type.compare(valueText, valueText) != 0) {
        return "not a number"; // a double that no bound could keep out
    }
    if (minimum && type.compare(valueText, minimum) < 0) {
        return "less than the minimum \"" + std::string(minimum) + '"';
    }
    return maximum && type.compare(valueText, maximum) > 0 ? "greater than the maximum \"" + std::string(maximum) + '"'
                                                           : "";
}

std::string composeBoundMessage(char const* parameterName, char const* valueText, std::string const& fault) {
    return std::string(parameterName) + ": \"" + valueText + "\" is " + fault;
}

void checkValue(ParameterValue const* value, Parameter::ValueType valueType, ParameterErrors& errors,
                ParameterValidator const* validator, bool checkAll) {
    KIVO_REQUIRE(value != 0);
    auto const* parameter = value->getParameter();
    char const* const name = parameter ? parameter->getName() : nullptr;
    Bounds const bounds = parameter ? Bounds{parameter->getMinimum(), parameter->getMaximum()} : Bounds{};
    bool const isSecret = parameter && parameter->isSensitive();
    bool isComplete = true;
    for (unsigned long i = 0; i < value->getNumberOfValues() && (isComplete || checkAll); ++i) {
        char const* text = value->getValue(i, true);
        if (text) {
            checkText(name, text, value->getStoredOrigin(i), valueType, errors, isSecret);
            if (auto const fault = describeBoundFault(text, valueType, bounds); !fault.empty()) {
                addTextFault(errors, Rule::OUT_OF_RANGE, value->getStoredOrigin(i), text, isSecret,
                             [&](char const* shown) { return composeBoundMessage(name, shown, fault); });
            }
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
            if (isSecret) {
                errors.setMaskedError(errors.getNumberOfErrors() - 1, composeMaskedRejection(name, *validator));
            }
        }
    }
}

} // namespace kivo::configuration
