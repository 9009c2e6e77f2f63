#include "kernel/kvProcessInit.h"

#include "registry/xml/xerces/DocumentTeller.h"

#include "registry/xml/xerces/XmlText.h"

#include <xercesc/dom/DOMNamedNodeMap.hpp>

namespace kivo::configuration {

namespace {

XmlModuleOutcome tellStart(xercesc::DOMElement const& element, XMLFileLoc line, XmlModuleClient const& client) {
    auto const& attributes = *element.getAttributes();
    auto const count = attributes.getLength();
    auto outcome = client.startElement(client.context, toLocalText(element.getTagName()).c_str(), line, count);
    for (XMLSize_t i = 0; i < count && outcome == XML_MODULE_DONE; ++i) {
        auto const* const attribute = attributes.item(i);
        outcome = client.addAttribute(client.context, toLocalText(attribute->getNodeName()).c_str(),
                                      toLocalText(attribute->getNodeValue()).c_str());
    }
    return outcome;
}

} // namespace

XmlModuleOutcome tellDocument(xercesc::DOMElement const& root, std::vector<XMLFileLoc> const& lines,
                              XmlModuleClient const& client) {
    auto line = lines.begin();
    auto const nextLine = [&] { return line == lines.end() ? 0 : *line++; };
    auto outcome = tellStart(root, nextLine(), client);
    // For each open element the next one inside it. Not by recursion: elements can be nested deeply.
    std::vector<xercesc::DOMElement const*> next = {root.getFirstElementChild()};
    while (!next.empty() && outcome == XML_MODULE_DONE) {
        if (auto const* const element = next.back()) {
            next.back() = element->getNextElementSibling();
            outcome = tellStart(*element, nextLine(), client);
            next.push_back(element->getFirstElementChild());
        } else {
            outcome = client.endElement(client.context);
            next.pop_back();
        }
    }
    return outcome;
}

} // namespace kivo::configuration
