#pragma once

#include "lint/RegistryContents.h"
#include "registry/Declaration.h"

#include <optional>

namespace kivo::configuration {

class DeclarationPlaces;
class Parameter;
struct ElementFormat;

/// Says what loading passes over in silence in the elements of one file.
class DeclarationRemarks {
public:
    /// Both must outlive this object.
    DeclarationRemarks(RegistryContents& contents, DeclarationPlaces const& places)
        : mContents(contents), mPlaces(places) {}

    /// Remarks on the document element, and on what stands in it in the wrong place.
    void remarkOnSections(XmlElement const& root);
    /// Remarks on one element, without its children. @param place what may stand inside the element's parent
    void remarkOn(XmlElement const& element, Content place);
    /// Remarks on a default that an attribute of an element gives. @param text the attribute's; null: there is none
    void remarkOnDefault(XmlElement const& element, Parameter const& parameter, char const* text);

private:
    struct Attribute;

    void remarkOnAttributes(XmlElement const& element, ElementFormat const& format);
    void remarkOnFlag(Attribute const& attribute);
    void remarkOnName(XmlElement const& element, ElementFormat const& format);
    void remarkOnSpelling(XmlElement const& element, char const* text, RegistryContents::Spellings& spellings);
    void remarkOnUnread(XmlElement const& element, std::string const& message, std::string const& suggestion = {});
    void add(Rule rule, std::string const& message, StoredOrigin const& place, std::string const& suggestion = {});
    std::string suggest(std::string_view given, std::vector<char const*> const& names) const;

    RegistryContents& mContents;
    DeclarationPlaces const& mPlaces;
};

} // namespace kivo::configuration
