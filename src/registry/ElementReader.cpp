#include "kernel/kvProcessInit.h"

#include "registry/ElementReader.h"

#include <configuration/ConfigurationException.h>

#include "registry/XmlText.h"
#include "schema/NameComparison.h"

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>

#include <algorithm>

namespace kivo::configuration {

namespace {

/// In the order of RegistryAttribute.
constexpr std::array ATTRIBUTE_NAMES = {"id",      "name",      "description", "type",     "valueName",
                                        "default", "validator", "enumType",    "optional", "unbounded",
                                        "hidden",  "label",     "value"};

} // namespace

ElementReader::ElementReader(xercesc::DOMElement const& element) {
    static_assert(ATTRIBUTE_NAMES.size() == ATTRIBUTE_COUNT);
    auto const& attributes = *element.getAttributes();
    auto const count = attributes.getLength();
    for (XMLSize_t i = 0; i < count; ++i) {
        auto const* const attribute = attributes.item(i);
        auto const* const name = attribute->getNodeName();
        auto const found =
            std::ranges::find_if(ATTRIBUTE_NAMES, [name](char const* known) { return equalsAscii(name, known); });
        if (found != ATTRIBUTE_NAMES.end()) {
            mTexts[static_cast<std::size_t>(found - ATTRIBUTE_NAMES.begin())] = attribute->getNodeValue();
        }
    }
}

std::string ElementReader::getRequired(RegistryAttribute attribute) const {
    auto const index = static_cast<std::size_t>(attribute);
    if (!mTexts[index]) {
        throw ConfigurationException("Expected attribute \"%s\" was not found", ATTRIBUTE_NAMES[index]);
    }
    return toLocalText(mTexts[index]);
}

std::optional<std::string> ElementReader::getOptional(RegistryAttribute attribute) const {
    auto const* const text = mTexts[static_cast<std::size_t>(attribute)];
    return text ? std::optional(toLocalText(text)) : std::nullopt;
}

std::optional<bool> ElementReader::getFlag(RegistryAttribute attribute) const {
    auto const text = getOptional(attribute);
    return text ? std::optional(equalIgnoringCase(*text, "true") || *text == "1") : std::nullopt;
}

bool isNamed(xercesc::DOMElement const& element, char const* name) { return equalsAscii(element.getLocalName(), name); }

std::string getName(xercesc::DOMElement const& element) { return toLocalText(element.getLocalName()); }

void validateTagName(xercesc::DOMElement const* element, char const* name) {
    if (!element) {
        throw ConfigurationException("Expected \"%s\" tag was not found", name);
    }
    if (!isNamed(*element, name)) {
        throw ConfigurationException("Expected \"%s\" tag but found \"%s\"", name, getName(*element).c_str());
    }
}

} // namespace kivo::configuration
