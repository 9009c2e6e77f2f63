#pragma once

#include <string>
#include <string_view>

namespace kivoconfig {

/// Whether a text can be the name of an element or attribute, without a namespace. "xmlns" cannot.
bool isXmlName(std::string_view text);

/// Whether XML can carry all characters of a text.
bool isXmlText(std::string_view text);

/// A text as it stands between tags, or in an attribute in double quotes. Controls are references; what XML cannot
/// carry is U+FFFD.
std::string xmlEscaped(std::string_view text);

/// A printable text as it stands in a comment: "--" would end it, and is "- -".
std::string xmlCommented(std::string_view text);

/// What xmlEscaped() made, as it stands in a comment: there, "--" is references.
std::string xmlEscapedInComment(std::string_view text);

} // namespace kivoconfig
