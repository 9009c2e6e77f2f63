#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlScope.h"

#include "registry/xml/xerces/XercesLibraryInit.h"

namespace kivo::configuration {

XmlScope::XmlScope() { XercesLibraryInit::keepOpen(); }

XmlScope::~XmlScope() = default;

} // namespace kivo::configuration
