#include "kernel/kvProcessInit.h"

#include <configuration/NameSuggestion.h>

#include "schema/NameSuggestion.h"

namespace kivo::configuration {

char const* suggestName(char const* given, char const* const* names, unsigned long numberOfNames) {
    ClosestName closest(given ? given : "");
    for (unsigned long i = 0; i < numberOfNames; ++i) {
        closest.offer(names[i]);
    }
    return closest.get();
}

} // namespace kivo::configuration
