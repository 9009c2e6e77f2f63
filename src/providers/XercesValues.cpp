#include "kernel/kvProcessInit.h"

#include "providers/XercesValues.h"

#include "providers/XmlValuesFile.h"
#include "registry/xml/xerces/XercesTree.h"
#include "schema/ContractChecks.h"

namespace kivo::configuration {

ParameterValueGroup* getGroupFromXmlElement(xercesc::DOMElement* element) {
    KIVO_REQUIRE(element != 0);
    return getGroupFromXmlElement(toXmlDocument(*element).getRoot());
}

} // namespace kivo::configuration
