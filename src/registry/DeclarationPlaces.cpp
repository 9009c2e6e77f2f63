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
    auto const attribute = std::ranges::find(element.getAttributes(), text, &XmlAttribute::value);
    auto const position = mDocument.getPosition(element, *attribute);
    return mDefaults.at(position.line, position.column);
}

} // namespace kivo::configuration
