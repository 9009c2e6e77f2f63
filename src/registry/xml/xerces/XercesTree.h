#pragma once

#include "registry/xml/XmlDocument.h"

#include <xercesc/dom/DOMElement.hpp>

namespace kivo::configuration {

/// An element of the XML library's and all below it, as a document of its own.
/// @throws ConfigurationException a character is not in the local code page
XmlDocument toXmlDocument(xercesc::DOMElement const& root);

} // namespace kivo::configuration
