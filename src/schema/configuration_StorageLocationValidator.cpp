#include "kernel/kvProcessInit.h"

#include "schema/StorageLocationValidator.h"

#include <configuration/Memory.h>

#include "schema/ContractChecks.h"

#include <string_view>

namespace kivo::configuration {

StorageLocationValidator::StorageLocationValidator() : ParameterValidator("storageLocation") {}

char* StorageLocationValidator::validate(char const* value) const {
    KIVO_REQUIRE(value != 0);
    std::string_view const location(value);
    auto const separator = location.find("::");
    bool const plainPath = separator == std::string_view::npos;
    if (plainPath || (separator > 0 && separator + 2 < location.size())) {
        return nullptr;
    }
    return cloneString("Value is not properly formatted");
}

} // namespace kivo::configuration
