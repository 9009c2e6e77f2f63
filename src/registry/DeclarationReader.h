#pragma once

#include "registry/Declaration.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

// The format of registry files: which elements stand where, and their attributes. Reading looks nothing up and
// registers nothing.

namespace kivo::configuration {

struct SectionElement {
    XmlElement const& element;
    Content children;
};

/// @throws UnknownName "Expected \"ConfigurationRegistry\" tag but found \"<found>\""
void validateRoot(XmlElement const& root);

/// The sections of a file. They have a fixed order, and each may be left out; the first element that does not fit, and
/// all after it, are ignored.
std::vector<SectionElement> readSections(XmlElement const& root);

/// Reads one element. Its attributes are looked at in a fixed order, so that of several faults always the same one is
/// reported.
/// @param place what may stand inside the element's parent
/// @throws ConfigurationException an attribute that must be there is absent, or must not be empty
/// @throws UnknownName            the element does not belong there, or there is no such type
Declaration readDeclaration(XmlElement const& element, Content place);

/// What stands for an element that was refused, so that what refers to it and what is in it can be looked at: it has a
/// name near enough, and whatever can be wrong with its attributes is replaced by something that cannot.
/// @return nothing when nobody can say what the element was meant to be, or when nothing need stand for it
std::optional<Declaration> readStandIn(XmlElement const& element, Content place);

/// An attribute that an element may have.
struct AttributeFormat {
    std::string_view name;
    bool isFlag = false; ///< whether it says true or false
};

/// An element that may stand somewhere.
struct ElementFormat {
    char const* name;
    std::span<AttributeFormat const> attributes;
    Content children;
};

/// The elements of a place, at least one.
std::vector<ElementFormat> getElementFormats(Content place);

/// The names of the sections, in their order.
std::vector<char const*> getSectionNames();

/// The document element's name.
inline constexpr char const* ROOT_NAME = "ConfigurationRegistry";

} // namespace kivo::configuration
