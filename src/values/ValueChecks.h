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
               Parameter::ValueType valueType, ParameterErrors& errors);

/// Checks every text of a value against a type and then, unless a text is missing, the value by a validator.
/// @param validator the validator, or null
/// @param checkAll  whether the texts after a missing one are checked, too
/// @throws kivo::ContractViolationException "value != 0"
void checkValue(ParameterValue const* value, Parameter::ValueType valueType, ParameterErrors& errors,
                ParameterValidator const* validator, bool checkAll = false);

} // namespace kivo::configuration
