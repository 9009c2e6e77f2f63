#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlModuleOpening.h"

namespace kivo::configuration {

XmlModule const* openXmlModule() { return kivoConfigurationXmlModule(XML_MODULE_INTERFACE); }

void closeXmlModule() {}

} // namespace kivo::configuration
