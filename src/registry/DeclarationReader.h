#pragma once

#include "registry/Declaration.h"

#include <vector>

// The format of registry files: which elements stand where, and their attributes. Reading looks nothing up and
// registers nothing.

namespace kivo::configuration {

struct Section {
    XmlElement const& element;
    Content children;
};

/// The sections of a file. They have a fixed order, and each may be left out; the first element that does not fit, and
/// all after it, are ignored.
/// @throws ConfigurationException "Expected \"ConfigurationRegistry\" tag but found \"<found>\""
std::vector<Section> readSections(XmlElement const& root);

/// Reads one element. Its attributes are looked at in a fixed order, so that of several faults always the same one is
/// reported.
/// @param place what may stand inside the element's parent
/// @throws ConfigurationException the element does not belong there, an attribute that must be there is absent, or
///         there is no such type
Declaration readDeclaration(XmlElement const& element, Content place);

} // namespace kivo::configuration
