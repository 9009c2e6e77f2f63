#pragma once

#include "registry/xml/XmlModule.h"

#include <xercesc/dom/DOMElement.hpp>

#include <vector>

namespace kivo::configuration {

/// Tells a client of an element of the XML library's and all below it.
/// @param lines the line of each element, in their order; empty when they are not known
/// @throws ConfigurationException a character is not in the local code page
XmlModuleOutcome tellDocument(xercesc::DOMElement const& root, std::vector<XMLFileLoc> const& lines,
                              XmlModuleClient const& client);

} // namespace kivo::configuration
