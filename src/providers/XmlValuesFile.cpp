#include "kernel/kvProcessInit.h"

#include "providers/XmlValuesFile.h"

#include <configuration/ParameterValueGroup.h>

#include "registry/XercesDocument.h"
#include "registry/XercesLibraryInit.h"
#include "registry/XmlText.h"
#include "schema/ContractChecks.h"
#include "schema/MainLog.h"

#include <xercesc/dom/DOMNamedNodeMap.hpp>

namespace kivo::configuration {

namespace {

void logWarnings(std::vector<std::string> const& warnings) {
    if (warnings.empty()) {
        return;
    }
    std::string text = "loadFromXmlFile:\n";
    for (auto const& warning : warnings) {
        text.append(warning).append("\n");
    }
    addToMainLog(text);
}

void addAttributes(ParameterValueGroup& group, xercesc::DOMElement const& element) {
    auto const& attributes = *element.getAttributes();
    auto const count = attributes.getLength();
    for (XMLSize_t i = 0; i < count; ++i) {
        auto const* const attribute = attributes.item(i);
        group.addValue(toLocalText(attribute->getNodeName()).c_str(), toLocalText(attribute->getNodeValue()).c_str());
    }
}

} // namespace

ParameterValueGroup* loadFromXmlFile(char const* fileName) {
    XercesLibraryInit const library;
    XercesDocument const document(fileName, nullptr);
    logWarnings(document.getWarnings());
    document.getErrors().throwIfErrors();
    return getGroupFromXmlElement(document.getDocument()->getDocumentElement());
}

ParameterValueGroup* getGroupFromXmlElement(xercesc::DOMElement* element) {
    KIVO_REQUIRE(element != 0);
    auto group = std::make_unique<ParameterValueGroup>(toLocalText(element->getTagName()).c_str());
    addAttributes(*group, *element);
    for (auto* child = element->getFirstElementChild(); child; child = child->getNextElementSibling()) {
        group->addItem(getGroupFromXmlElement(child));
    }
    return group.release();
}

} // namespace kivo::configuration
