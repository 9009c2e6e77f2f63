#pragma once

#include <configuration/ParameterValidator.h>

/// "identifier": letters, digits and underscores, not beginning with a digit.
class IdentifierValidator final : public kivo::configuration::ParameterValidator {
public:
    IdentifierValidator();

    using ParameterValidator::validate;
    char* validate(char const* text) const override;
};
