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

XmlPosition DeclarationPlaces::positionOf(XmlElement const& element, char const* text) const {
    auto const attribute = std::ranges::find(element.getAttributes(), text, &XmlAttribute::value);
    return mDocument.getPosition(element, *attribute);
}

StoredOrigin DeclarationPlaces::ofAttribute(XmlElement const& element, char const* text) const {
    auto const position = positionOf(element, text);
    return mFile.at(position.line, position.column);
}

StoredOrigin DeclarationPlaces::ofDefault(XmlElement const& element, char const* text) const {
    if (!text) {
        return {};
    }
    auto const position = positionOf(element, text);
    return mDefaults.at(position.line, position.column);
}

} // namespace kivo::configuration
