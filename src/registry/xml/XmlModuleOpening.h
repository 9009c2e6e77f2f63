#pragma once

#include "registry/xml/XmlModule.h"

namespace kivo::configuration {

/// The module of Xerces-C, opened, or null when that cannot be done. There are two ways: the product's library opens a
/// file, the static library has the module built in.
/// @throws std::bad_alloc memory has run out
XmlModule const* openXmlModule();

/// To be called for each module opened, when nothing of it is used any more.
void closeXmlModule();

} // namespace kivo::configuration
