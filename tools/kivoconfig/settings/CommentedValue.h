#pragma once

#include <string>

namespace kivoconfig {

/// A comment of a values file that offers a value: what is to be taken out of it, or copied into the start tag around
/// it, gives the text.
/// @param id       an XML name
/// @param isDirect whether the setting stands in its section itself: then it can be an element
std::string commentedValue(std::string const& id, bool isDirect, std::string const& text);

} // namespace kivoconfig
