#pragma once

#include "registry/xml/XmlModule.h"

namespace kivo::configuration {

/// The module of Xerces-C, opened, or null when that cannot be done. There are two ways: the product's library opens a
/// file, the static library has the module built in. If memory runs out while Xerces-C is started, it cannot be used
/// any more: in the file, until that is opened anew; built in, to the end of the process.
/// @throws std::bad_alloc memory has run out
XmlModule const* openXmlModule();

/// To be called for each module opened, when nothing of it is used any more.
void closeXmlModule();

} // namespace kivo::configuration
