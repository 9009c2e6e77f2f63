#include "kernel/kvProcessInit.h"

#include <configuration/Memory.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterItem.h>
#include <configuration/ParameterValidator.h>
#include <configuration/Specification.h>

#include <cstring>

namespace kivo::configuration {

void destroy(ParameterItem const* item) { delete item; }

void destroy(ParameterValidator const* validator) { delete validator; }

void destroy(ParameterEnumDefinition const* enumDefinition) { delete enumDefinition; }

void destroy(Specification const* specification) { delete specification; }

char* cloneString(char const* s) {
    if (!s) {
        return nullptr;
    }
    auto const size = std::strlen(s) + 1;
    auto* copy = new char[size];
    std::memcpy(copy, s, size);
    return copy;
}

} // namespace kivo::configuration
