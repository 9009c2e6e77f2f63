#pragma once

#include <configuration/ParameterErrors.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/sax/ErrorHandler.hpp>

#include <memory>
#include <string>
#include <vector>

namespace kivo::configuration {

class ByteSource;

/// The elements and attributes of one XML file, and what the parser said about it, a line for each fault. Texts between
/// elements, comments and processing instructions are not kept: no file of the library gives them a meaning.
///
/// To be used within a XercesLibraryInit, and destroyed before it ends.
class XercesDocument final : private xercesc::ErrorHandler {
public:
    /// Reads a file. Whatever is wrong with it, missing files included, becomes a line in getErrors(); then the
    /// document may be incomplete or null. BoundedDomParser tells what is refused beside faults of syntax.
    /// @param fileName     path of a regular file, links followed
    /// @param errorHandler gets what the parser says instead of this object's lists; null: the lists get it
    XercesDocument(char const* fileName, xercesc::ErrorHandler* errorHandler);

    /// Reads a file's bytes as another one gets them.
    /// @param fileName what messages call the file
    XercesDocument(char const* fileName, ByteSource const& source);

    /// Takes a finished document over; null is allowed.
    explicit XercesDocument(xercesc::DOMDocument* document);

    ~XercesDocument() override;

    XercesDocument(XercesDocument const&) = delete;
    XercesDocument& operator=(XercesDocument const&) = delete;

    /// The document, which stays owned by this object, or null.
    xercesc::DOMDocument* getDocument() const;

    /// The line in which each element's start tag ends, in the order of the tags; empty when no file was read.
    std::vector<XMLFileLoc> const& getLines() const;

    /// One line "XML ERROR: …" for each error, fatal or not.
    ParameterErrors const& getErrors() const;

    /// One line "XML WARNING: …" for each warning.
    std::vector<std::string> const& getWarnings() const;

    void resetErrors() override;
    void resetWarnings();

private:
    void warning(xercesc::SAXParseException const& exception) override;
    void error(xercesc::SAXParseException const& exception) override;
    void fatalError(xercesc::SAXParseException const& exception) override;

    void read(ByteSource const& source, xercesc::ErrorHandler& errorHandler);
    void addWarning(xercesc::SAXParseException const& exception);
    void addError(xercesc::SAXParseException const& exception);
    std::string generateMessage(char const* kind, xercesc::SAXParseException const& exception) const;

    struct Releaser {
        void operator()(xercesc::DOMDocument* document) const;
    };

    std::unique_ptr<xercesc::DOMDocument, Releaser> mDocument;
    std::vector<XMLFileLoc> mLines;
    ParameterErrors mErrors;
    std::vector<std::string> mWarnings;
    std::string mFileName;
};

} // namespace kivo::configuration
