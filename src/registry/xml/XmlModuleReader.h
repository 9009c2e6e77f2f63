#pragma once

#include "registry/xml/XmlDocumentBuilder.h"
#include "registry/xml/XmlModule.h"

#include <configuration/ParameterErrors.h>

#include <string>
#include <vector>

namespace kivo::configuration {

class XmlInput;

/// What the module of Xerces-C tells of a file, as it comes.
struct XmlModuleReader {
    /// To be used while this object lives.
    XmlModuleClient makeClient();

    XmlInput* input = nullptr; ///< what the module reads, when it is asked to
    char const* path = "";     ///< of the input
    XmlDocumentBuilder builder;
    std::vector<std::string> warnings;
    ParameterErrors errors;
};

} // namespace kivo::configuration
