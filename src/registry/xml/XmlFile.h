#pragma once

#include <configuration/ParameterErrors.h>

#include "registry/xml/XmlDocument.h"

#include <string>
#include <vector>

namespace kivo::configuration {

class XmlInput;
struct PlainXml;

/// An XML file that was read, and what there is to say about it, a line for each fault.
class XmlFile {
public:
    /// Reads a file. Whatever is wrong with it, missing files included, becomes a line in getErrors().
    /// @param path of a regular file, links followed
    /// @throws std::bad_alloc memory has run out
    explicit XmlFile(char const* path);

    /// One line "XML WARNING: …" for each warning.
    std::vector<std::string> const& getWarnings() const { return mWarnings; }

    /// One line "XML ERROR: …" for each error.
    ParameterErrors const& getErrors() const { return mErrors; }

    /// Why the file was left to the Xerces-C module, and where that shows; empty when a part of the library read it.
    std::string const& getObstacle() const { return mObstacle; }
    XmlPosition getObstaclePosition() const { return mObstaclePosition; }

    /// What the file holds. Only when there are no errors.
    XmlDocument const& getDocument() const { return mDocument; }

private:
    void readWithModule(char const* path, XmlInput& input, PlainXml const& plain);
    void addError(char const* path, std::string const& text, XmlPosition position);

    std::vector<std::string> mWarnings;
    ParameterErrors mErrors;
    XmlDocument mDocument;
    std::string mObstacle;
    XmlPosition mObstaclePosition{};
};

} // namespace kivo::configuration
