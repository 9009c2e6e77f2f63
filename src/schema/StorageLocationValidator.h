#pragma once

#include <configuration/ParameterValidator.h>

namespace kivo::configuration {

/// The built-in validator "storageLocation": accepts a plain path, or a host and a path joined by "::".
class StorageLocationValidator final : public ParameterValidator {
public:
    StorageLocationValidator();

    using ParameterValidator::validate;
    /// @throws kivo::ContractViolationException "value != 0"
    char* validate(char const* value) const override;
};

} // namespace kivo::configuration
