#pragma once

#include <string>
#include <string_view>

namespace kivoconfig {

// The library's texts, the command line and the terminal have the character set of the process's locale; "C" and
// "POSIX" count as UTF-8, as they do in the library.

/// A text of the outside in UTF-8. What does not convert becomes U+FFFD.
std::string toUtf8(std::string_view local);

/// A text for the outside. A character that the set lacks becomes a question mark.
std::string toLocal(std::string_view utf8);

} // namespace kivoconfig
