#include "kernel/kvProcessInit.h"

#include "registry/DeclarationPlaces.h"

#include <algorithm>

namespace kivo::configuration {

DeclarationPlaces::DeclarationPlaces(XmlDocument const& document, char const* path)
    : mDocument(document), mFile(Origin::FILE_SOURCE, path), mDefaults(Origin::DEFAULT_SOURCE, path) {}

StoredOrigin DeclarationPlaces::of(XmlElement const& element) const {
    auto const position = mDocument.getPosition(element);
    return mFile.at(position.line, position.column);
}

StoredOrigin DeclarationPlaces::ofDefault(XmlElement const& element, char const* text) const {
    if (!text) {
        return {};
    }
    auto const position = positionOf(element, text);
    return mDefaults.at(position.line, position.column);
}

StoredOrigin DeclarationPlaces::of(XmlElement const& element, char const* text) const {
    auto const position = positionOf(element, text);
    return mFile.at(position.line, position.column);
}

std::vector<StoredOrigin> DeclarationPlaces::ofAttributes(XmlElement const& element) const {
    std::vector<StoredOrigin> places;
    for (auto const& position : mDocument.getAttributePositions(element)) {
        places.push_back(mFile.at(position.line, position.column));
    }
    return places;
}

XmlPosition DeclarationPlaces::positionOf(XmlElement const& element, char const* text) const {
    auto const attributes = element.getAttributes();
    auto const attribute = std::ranges::find(attributes, text, &XmlAttribute::value);
    return attribute == attributes.end() ? mDocument.getPosition(element) : mDocument.getPosition(element, *attribute);
}

} // namespace kivo::configuration
