#pragma once

#include "registry/xml/XmlDocument.h"
#include "schema/StoredOrigin.h"

#include <vector>

namespace kivo::configuration {

/// Where the declarations of a registry file stand.
class DeclarationPlaces {
public:
    /// @param document must outlive this object
    DeclarationPlaces(XmlDocument const& document, char const* path);

    /// Where an element begins.
    StoredOrigin of(XmlElement const& element) const;

    /// Where an attribute begins; for a text of none, where the element does. @param text the attribute's, not a copy
    StoredOrigin of(XmlElement const& element, char const* text) const;

    /// The same, for each attribute by its number.
    std::vector<StoredOrigin> ofAttributes(XmlElement const& element) const;

    /// The same of the attribute that gives a default. @param text null: there is none
    StoredOrigin ofDefault(XmlElement const& element, char const* text) const;

private:
    XmlPosition positionOf(XmlElement const& element, char const* text) const;

    XmlDocument const& mDocument;
    StoredOrigin mFile;
    StoredOrigin mDefaults;
};

} // namespace kivo::configuration
