#pragma once

#include <configuration/Export.h>

// What the library and the module of Xerces-C, a shared object of its own, know of each other: plain data and C
// functions that let no exception out.

namespace kivo::configuration {

/// Raised with every change of this file: a library and a module of different numbers do not work together.
inline constexpr unsigned int XML_MODULE_INTERFACE = 2;

enum XmlModuleOutcome : int { XML_MODULE_DONE, XML_MODULE_OUT_OF_MEMORY, XML_MODULE_FAILED };

/// What the module calls while it reads a file. Texts are in the local code page, and live for the time of the call.
struct XmlModuleClient {
    void* context;

    /// Fills a buffer, up to the end of the file. @return the number of bytes, or -1 when the file cannot be read
    long (*copyBytes)(void* context, char* buffer, unsigned long size);

    /// These tell of the document, in its order, once all of it is read. @return anything else than XML_MODULE_DONE
    /// ends the reading
    XmlModuleOutcome (*startElement)(void* context, char const* name, unsigned long line, unsigned long attributeCount);
    XmlModuleOutcome (*addAttribute)(void* context, char const* name, char const* value);
    XmlModuleOutcome (*endElement)(void* context);

    /// A line about the file, of an error with the place that the parser tells, or 0. After an error no document
    /// follows.
    XmlModuleOutcome (*addWarning)(void* context, char const* line);
    XmlModuleOutcome (*addError)(void* context, char const* line, unsigned long lineNumber, unsigned long column);
};

/// What the module does.
struct XmlModule {
    /// Starts the XML library; after XML_MODULE_DONE only, stop() has to follow.
    XmlModuleOutcome (*start)();
    void (*stop)();

    /// Reads a file, from threads at the same time too.
    /// @param path what messages call the file
    XmlModuleOutcome (*read)(char const* path, XmlModuleClient const* client);
};

} // namespace kivo::configuration

/// The one function that the module exports. @return null for any number but XML_MODULE_INTERFACE
extern "C" KIVO_CONFIGURATION_API kivo::configuration::XmlModule const*
kivoConfigurationXmlModule(unsigned int interfaceNumber);
