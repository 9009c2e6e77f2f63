#pragma once

#include "registry/xml/XmlDocument.h"

#include <optional>
#include <string>

namespace kivo::test {

/// An element and all below it, such as "r[a=1 b=2 ](b[]() c[]())".
std::string toText(configuration::XmlElement const& element);

/// A file as Expat reads it; nothing when it is not plain.
std::optional<std::string> readPlain(std::string const& path);

/// A file as Xerces-C reads it: its tree, or its faults, a line each. Within an XmlScope.
std::string readWithXerces(std::string const& path);

/// A file as the library reads it: its tree, or its faults.
std::string readFile(std::string const& path);

} // namespace kivo::test
