#include "settings/ValuesFileNames.h"

#include "Faults.h"
#include "text/CodePage.h"
#include "text/Xml.h"

#include <configuration/Specification.h>

#include <string>

using namespace kivo::configuration;

namespace kivoconfig {

void requireValuesFiles(Specification const& specification) {
    if (!isXmlName(toUtf8(specification.getId()))) {
        throw CallFault("there are no values files for \"" + std::string(specification.getId()) +
                        "\": this id is no XML name");
    }
}

} // namespace kivoconfig
