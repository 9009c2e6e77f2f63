#pragma once

#include <string_view>

namespace kivo::configuration {

/// Whether a text in the local code page can be the name of an element or an attribute of a values file. Names with
/// colons cannot.
bool isXmlName(std::string_view text);

} // namespace kivo::configuration
