#include "kernel/kvProcessInit.h"

#include "providers/XercesValues.h"

#include "providers/XmlValuesFile.h"
#include "registry/xml/XmlModuleReader.h"
#include "registry/xml/xerces/DocumentTeller.h"
#include "schema/ContractChecks.h"
#include "schema/StoredOrigin.h"

#include <new>

namespace kivo::configuration {

ParameterValueGroup* getGroupFromXmlElement(xercesc::DOMElement* element) {
    KIVO_REQUIRE(element != 0);
    XmlModuleReader reader;
    if (tellDocument(*element, {}, reader.makeClient()) == XML_MODULE_OUT_OF_MEMORY) {
        throw std::bad_alloc();
    }
    return getGroupFromXmlDocument(reader.builder.finish(), StoredOrigin());
}

} // namespace kivo::configuration
