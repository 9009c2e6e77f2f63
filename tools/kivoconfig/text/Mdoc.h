#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace kivoconfig {

// Manual pages in the macros of mdoc. Texts are printable UTF-8; nothing in them is a macro or an escape.

/// A text as one argument of a macro.
std::string mdocArgument(std::string_view text);

/// A text as the arguments of a macro, as far as they fit into a line; what remains is taken off the text.
std::string takeMdocArguments(std::string_view& text);

/// Writes a text in lines; a sentence begins a line.
void writeMdocText(std::ostream& out, std::string_view text);

} // namespace kivoconfig
