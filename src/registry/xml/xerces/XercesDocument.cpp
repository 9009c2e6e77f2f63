#include "kernel/kvProcessInit.h"

#include "registry/xml/xerces/XercesDocument.h"

#include "registry/xml/xerces/BoundedDomParser.h"
#include "registry/xml/xerces/RegularFileSource.h"
#include "registry/xml/xerces/XmlText.h"

#include <xercesc/sax/SAXParseException.hpp>

namespace kivo::configuration {

XercesDocument::XercesDocument(char const* fileName, xercesc::ErrorHandler* errorHandler) : mFileName(fileName) {
    RegularFileSource const source(fileName);
    BoundedDomParser parser(errorHandler ? *errorHandler : *this);
    parser.read(source);
    mDocument.reset(parser.adoptDocument());
}

XercesDocument::XercesDocument(xercesc::DOMDocument* document) : mDocument(document) {}

XercesDocument::~XercesDocument() = default;

xercesc::DOMDocument* XercesDocument::getDocument() const { return mDocument.get(); }

ParameterErrors const& XercesDocument::getErrors() const { return mErrors; }

std::vector<std::string> const& XercesDocument::getWarnings() const { return mWarnings; }

void XercesDocument::resetErrors() { mErrors.clear(); }

void XercesDocument::resetWarnings() { mWarnings.clear(); }

void XercesDocument::warning(xercesc::SAXParseException const& exception) { addWarning(exception); }

void XercesDocument::error(xercesc::SAXParseException const& exception) { addError(exception); }

void XercesDocument::fatalError(xercesc::SAXParseException const& exception) { addError(exception); }

void XercesDocument::addWarning(xercesc::SAXParseException const& exception) {
    mWarnings.push_back(generateMessage("WARNING", exception));
}

void XercesDocument::addError(xercesc::SAXParseException const& exception) {
    mErrors.addError("%s", generateMessage("ERROR", exception).c_str());
}

std::string XercesDocument::generateMessage(char const* kind, xercesc::SAXParseException const& exception) const {
    auto const* const text = exception.getMessage();
    std::string message = "XML ";
    message.append(kind).append(": ").append(text ? toMessageText(text) : "").append(".");
    if (!mFileName.empty()) {
        message.append(" File: \"").append(mFileName).append("\".");
    }
    if (auto const line = exception.getLineNumber(); line != 0) {
        message.append(" Line: ").append(std::to_string(line)).append(".");
    }
    if (auto const column = exception.getColumnNumber(); column != 0) {
        message.append(" Column: ").append(std::to_string(column)).append(".");
    }
    return message;
}

void XercesDocument::Releaser::operator()(xercesc::DOMDocument* document) const { document->release(); }

} // namespace kivo::configuration
