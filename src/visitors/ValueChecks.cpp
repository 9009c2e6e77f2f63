#include "kernel/kvProcessInit.h"

#include "visitors/SecondPhaseValidationVisitor.h"

#include <configuration/ParameterErrors.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ParameterValue.h>

#include "schema/ContractChecks.h"
#include "schema/NameComparison.h"
#include "values/NumberText.h"

#include <cstdio>
#include <memory>
#include <utility>

namespace kivo::configuration {

namespace {

template <class Number>
bool isIntegerOf(char const* text) {
    auto const number = parseInteger(text);
    return number.isWhole && std::in_range<Number>(number.value);
}

bool isBoolean(char const* text) {
    return parseInteger(text).isWhole || equalIgnoringCase(text, "true") || equalIgnoringCase(text, "false");
}

/// Four numbers joined by hyphens; a fifth field means that something other than white space follows them.
bool isOid(char const* text) {
    unsigned int numbers[4];
    char rest[11];
    return std::sscanf(*text == '#' ? text + 1 : text, "%u-%u-%u-%u%10s", &numbers[0], &numbers[1], &numbers[2],
                       &numbers[3], rest) == 4;
}

/// The type that a text is not, as messages name it; null when it fits.
char const* findMisfit(char const* text, Parameter::ValueType type) {
    switch (type) {
    case Parameter::BOOLEAN_PARAMETER: return isBoolean(text) ? nullptr : "boolean";
    case Parameter::INT_PARAMETER: return isIntegerOf<int>(text) ? nullptr : "signed integer";
    case Parameter::UINT_PARAMETER: return isIntegerOf<unsigned int>(text) ? nullptr : "unsigned integer";
    case Parameter::DOUBLE_PARAMETER: return parseDouble(text).isWhole ? nullptr : "double";
    case Parameter::OID_PARAMETER: return isOid(text) ? nullptr : "OID";
    default: return nullptr; // any text is a string; labels are looked up when they are read
    }
}

} // namespace

std::string SecondPhaseValidationVisitor::generateInvalidValueMessage(char const* parameterName, char const* valueText,
                                                                      char const* typeName) {
    std::string message;
    if (parameterName) {
        message.append(parameterName).append(": ");
    }
    return message.append("\"").append(valueText).append("\" is not a valid ").append(typeName);
}

void SecondPhaseValidationVisitor::validate(char const* parameterName, char const* valueText,
                                            Parameter::ValueType valueType, ParameterErrors& errors) {
    KIVO_REQUIRE(valueText != 0);
    if (char const* typeName = findMisfit(valueText, valueType)) {
        errors.addError("%s", generateInvalidValueMessage(parameterName, valueText, typeName).c_str());
    }
}

void SecondPhaseValidationVisitor::validate(ParameterValue const* value, Parameter::ValueType valueType,
                                            ParameterErrors& errors, ParameterValidator const* validator) {
    KIVO_REQUIRE(value != 0);
    auto const* parameter = value->getParameter();
    char const* const name = parameter ? parameter->getName() : nullptr;
    for (unsigned long i = 0; i < value->getNumberOfValues(); ++i) {
        char const* text = value->getValue(i, true);
        if (!text) {
            errors.addError("Missing value for the \"%s\" parameter", name ? name : "");
            return;
        }
        validate(name, text, valueType, errors);
    }
    if (validator) {
        if (std::unique_ptr<char[]> const message{validator->validate(*value)}) {
            errors.addError("%s", message.get());
        }
    }
}

} // namespace kivo::configuration
