#include "kernel/kvProcessInit.h"

#include "registry/ElementReader.h"

#include <configuration/ConfigurationException.h>

#include "schema/NameComparison.h"

#include <algorithm>
#include <cstring>

namespace kivo::configuration {

namespace {

/// In the order of RegistryAttribute.
constexpr std::array ATTRIBUTE_NAMES = {"id",      "name",      "description", "type",     "valueName",
                                        "default", "validator", "enumType",    "optional", "unbounded",
                                        "hidden",  "label",     "value"};

} // namespace

ElementReader::ElementReader(XmlElement const& element) {
    static_assert(ATTRIBUTE_NAMES.size() == ATTRIBUTE_COUNT);
    for (auto const& attribute : element.getAttributes()) {
        auto const found = std::ranges::find_if(
            ATTRIBUTE_NAMES, [&](char const* known) { return std::strcmp(attribute.name, known) == 0; });
        if (found != ATTRIBUTE_NAMES.end()) {
            mTexts[static_cast<std::size_t>(found - ATTRIBUTE_NAMES.begin())] = attribute.value;
        }
    }
}

std::string ElementReader::getRequired(RegistryAttribute attribute) const {
    auto const index = static_cast<std::size_t>(attribute);
    if (!mTexts[index]) {
        throw ConfigurationException("Expected attribute \"%s\" was not found", ATTRIBUTE_NAMES[index]);
    }
    return mTexts[index];
}

std::optional<std::string> ElementReader::getOptional(RegistryAttribute attribute) const {
    auto const* const text = mTexts[static_cast<std::size_t>(attribute)];
    return text ? std::optional<std::string>(text) : std::nullopt;
}

std::optional<bool> ElementReader::getFlag(RegistryAttribute attribute) const {
    auto const text = getOptional(attribute);
    return text ? std::optional(equalIgnoringCase(*text, "true") || *text == "1") : std::nullopt;
}

bool isNamed(XmlElement const& element, char const* name) { return std::strcmp(element.getLocalName(), name) == 0; }

void validateTagName(XmlElement const* element, char const* name) {
    if (!element) {
        throw ConfigurationException("Expected \"%s\" tag was not found", name);
    }
    if (!isNamed(*element, name)) {
        throw ConfigurationException("Expected \"%s\" tag but found \"%s\"", name, element->getLocalName());
    }
}

} // namespace kivo::configuration
