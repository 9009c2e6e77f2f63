#pragma once

#include <configuration/Parameter.h>

#include <string>

namespace kivo::configuration {

class ParameterErrors;
class ParameterValidator;
class ParameterValue;
class StoredOrigin;

/// `<name>: "<text>" is not a valid <type>`; a null name is left out with its colon.
std::string composeInvalidValueMessage(char const* parameterName, char const* valueText, char const* typeName);

/// Checks one text against a type.
/// @param origin where the text was given
/// @throws kivo::ContractViolationException "valueText != 0"
void checkText(char const* parameterName, char const* valueText, StoredOrigin const& origin,
               Parameter::ValueType valueType, ParameterErrors& errors, bool isSecret = false);

/// Texts of a type of numbers, or null.
struct Bounds {
    char const* minimum = nullptr;
    char const* maximum = nullptr;
};

/// What a number is that does not keep bounds, such as `less than the minimum "1"`; empty for all other texts.
std::string describeBoundFault(char const* valueText, Parameter::ValueType valueType, Bounds const& bounds);

/// `<name>: "<text>" is <fault>`
std::string composeBoundMessage(char const* parameterName, char const* valueText, std::string const& fault);

/// Checks every text of a value against a type and the bounds of its parameter and then, unless a text is missing, the
/// value by a validator. Faults of a secret text have a masked message, too.
/// @param validator the validator, or null
/// @param checkAll  whether the texts after a missing one are checked, too
/// @throws kivo::ContractViolationException "value != 0"
void checkValue(ParameterValue const* value, Parameter::ValueType valueType, ParameterErrors& errors,
                ParameterValidator const* validator, bool checkAll = false);

} // namespace kivo::configuration
