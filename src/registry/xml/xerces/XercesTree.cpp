#include "kernel/kvProcessInit.h"

#include "registry/xml/xerces/XercesTree.h"

#include "registry/xml/XmlDocumentBuilder.h"
#include "registry/xml/xerces/XmlText.h"

#include <xercesc/dom/DOMNamedNodeMap.hpp>

#include <vector>

namespace kivo::configuration {

namespace {

void startElement(XmlDocumentBuilder& builder, xercesc::DOMElement const& element) {
    auto const& attributes = *element.getAttributes();
    auto const count = attributes.getLength();
    builder.startElement(toLocalText(element.getTagName()), count);
    for (XMLSize_t i = 0; i < count; ++i) {
        auto const* const attribute = attributes.item(i);
        builder.addAttribute(toLocalText(attribute->getNodeName()), toLocalText(attribute->getNodeValue()));
    }
}

} // namespace

XmlDocument toXmlDocument(xercesc::DOMElement const& root) {
    XmlDocumentBuilder builder;
    startElement(builder, root);
    // For each open element the next one inside it. Not by recursion: elements can be nested deeply.
    std::vector<xercesc::DOMElement const*> next = {root.getFirstElementChild()};
    while (!next.empty()) {
        if (auto const* const element = next.back()) {
            next.back() = element->getNextElementSibling();
            startElement(builder, *element);
            next.push_back(element->getFirstElementChild());
        } else {
            builder.endElement();
            next.pop_back();
        }
    }
    return builder.finish();
}

} // namespace kivo::configuration
