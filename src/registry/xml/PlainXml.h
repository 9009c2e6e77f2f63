#pragma once

#include "registry/xml/XmlDocument.h"

#include <optional>
#include <string>

namespace kivo::configuration {

class XmlInput;

/// What came of reading a file as plain XML: its document, or else what was found wrong, if that was it.
struct PlainXml {
    std::optional<XmlDocument> document;
    std::string fault; ///< empty: readable and well-formed up to where it stopped being plain
    XmlPosition faultPosition{};
    std::string obstacle; ///< why a file without a fault is not plain, such as "it has a document type"
    XmlPosition obstaclePosition{};
};

/// Reads a file that is plain XML, which is what nearly all files are, quickly. Everything else is left to the module
/// of Xerces-C, to which what was read of the input is still there: faults, so that they are always told in its words,
/// and what the two parsers could see differently. Plain is:
///
/// - well-formed; version 1.0; UTF-8, declared or not, with a byte order mark or not, or declared as US-ASCII
/// - without a document type, colons in names, and the attribute xmlns
/// - names of ASCII characters; names and texts too, after references, where the local code page is not UTF-8
/// - at most 64 MiB, within XmlLimits, and with a declaration that Xerces-C reads whole
PlainXml readPlainXml(XmlInput& input);

} // namespace kivo::configuration
