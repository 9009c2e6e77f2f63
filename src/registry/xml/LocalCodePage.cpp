#include "kernel/kvProcessInit.h"

#include "registry/xml/LocalCodePage.h"

#include <langinfo.h>

namespace kivo::configuration {

std::string_view getLocalCodePageName() {
    std::string_view const name = nl_langinfo(CODESET);
    return name == "ANSI_X3.4-1968" ? "UTF-8" : name; // the former is how the locale "C" calls plain ASCII
}

bool isLocalCodePageUnicode() { return getLocalCodePageName() == "UTF-8"; }

} // namespace kivo::configuration
