#pragma once

#include <string>

namespace kivoconfig {

/// Says on standard error what is wrong, or worth knowing, about the call. @param text of the outside
void complain(std::string const& text);

} // namespace kivoconfig
