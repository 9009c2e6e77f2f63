#pragma once

#include "registry/xml/XmlDocument.h"
#include "schema/StoredOrigin.h"

namespace kivo::configuration {

/// Where the declarations of a registry file stand.
class DeclarationPlaces {
public:
    /// @param document must outlive this object
    DeclarationPlaces(XmlDocument const& document, char const* path);

    /// Where an element begins.
    StoredOrigin of(XmlElement const& element) const;

    /// Where the attribute begins that gives a default. @param text the attribute's, not a copy
    StoredOrigin ofDefault(XmlElement const& element, char const* text) const;

private:
    XmlDocument const& mDocument;
    StoredOrigin mFile;
    StoredOrigin mDefaults;
};

} // namespace kivo::configuration
