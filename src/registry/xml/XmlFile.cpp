#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlFile.h"

#include "registry/xml/XmlScope.h"
#include "registry/xml/xerces/XercesDocument.h"
#include "registry/xml/xerces/XercesTree.h"

namespace kivo::configuration {

XmlFile::XmlFile(char const* path) {
    XmlScope const scope;
    XercesDocument const document(path, nullptr);
    mWarnings = document.getWarnings();
    mErrors = document.getErrors();
    if (mErrors.getNumberOfErrors() == 0) {
        mDocument = toXmlDocument(*document.getDocument()->getDocumentElement());
    }
}

} // namespace kivo::configuration
