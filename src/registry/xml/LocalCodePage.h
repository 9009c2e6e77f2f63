#pragma once

#include <string_view>

// The local code page is that of the process's locale. The locale "C", in which a process starts, names no code page of
// its own; there it is UTF-8, so that the bytes of a UTF-8 file come out as they went in.

namespace kivo::configuration {

/// As the locale calls it, such as "ISO-8859-1".
std::string_view getLocalCodePageName();

/// Whether the local code page holds every character.
bool isLocalCodePageUnicode();

} // namespace kivo::configuration
