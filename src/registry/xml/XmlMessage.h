#pragma once

#include "registry/xml/XmlPlaces.h"

#include <string>

namespace kivo::configuration {

/// A line about an XML file: "XML ERROR: <text>. File: "<path>". Line: 1. Column: 2."
/// @param kind     "ERROR" or "WARNING"
/// @param path     left out when empty
/// @param position a line or column of 0 is left out
std::string composeXmlMessage(char const* kind, std::string const& text, std::string const& path, XmlPosition position);

} // namespace kivo::configuration
