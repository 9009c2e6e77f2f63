#include "kernel/kvProcessInit.h"

#include "registry/xml/xerces/XercesDocument.h"

#include "registry/xml/XmlInput.h"
#include "registry/xml/XmlMessage.h"
#include "registry/xml/xerces/BoundedDomParser.h"
#include "registry/xml/xerces/ByteSource.h"
#include "registry/xml/xerces/XmlText.h"

#include <xercesc/sax/SAXParseException.hpp>

namespace kivo::configuration {

XercesDocument::XercesDocument(char const* fileName, xercesc::ErrorHandler* errorHandler) : mFileName(fileName) {
    auto& handler = errorHandler ? *errorHandler : *this;
    XmlInput input(fileName);
    if (input.getProblem().empty()) {
        read(ByteSource(fileName,
                        [&input](char* buffer, std::size_t size) {
                            auto const count = input.copy(buffer, size);
                            return count ? static_cast<long>(*count) : -1;
                        }),
             handler);
    } else {
        handler.fatalError({toXmlText(input.getProblem()).c_str(), nullptr, nullptr, 0, 0});
    }
}

XercesDocument::XercesDocument(char const* fileName, ByteSource const& source) : mFileName(fileName) {
    read(source, *this);
}

XercesDocument::XercesDocument(xercesc::DOMDocument* document) : mDocument(document) {}

XercesDocument::~XercesDocument() = default;

xercesc::DOMDocument* XercesDocument::getDocument() const { return mDocument.get(); }

std::vector<XMLFileLoc> const& XercesDocument::getLines() const { return mLines; }

ParameterErrors const& XercesDocument::getErrors() const { return mErrors; }

std::vector<std::string> const& XercesDocument::getWarnings() const { return mWarnings; }

void XercesDocument::resetErrors() { mErrors.clear(); }

void XercesDocument::resetWarnings() { mWarnings.clear(); }

void XercesDocument::warning(xercesc::SAXParseException const& exception) { addWarning(exception); }

void XercesDocument::error(xercesc::SAXParseException const& exception) { addError(exception); }

void XercesDocument::fatalError(xercesc::SAXParseException const& exception) { addError(exception); }

void XercesDocument::read(ByteSource const& source, xercesc::ErrorHandler& errorHandler) {
    BoundedDomParser parser(errorHandler);
    parser.read(source);
    mDocument.reset(parser.adoptDocument());
    mLines = parser.takeLines();
}

void XercesDocument::addWarning(xercesc::SAXParseException const& exception) {
    mWarnings.push_back(generateMessage("WARNING", exception));
}

void XercesDocument::addError(xercesc::SAXParseException const& exception) {
    Origin const origin(Origin::FILE_SOURCE, mFileName.c_str(), exception.getLineNumber(), exception.getColumnNumber());
    mErrors.addErrorAt(origin, "%s", generateMessage("ERROR", exception).c_str());
}

std::string XercesDocument::generateMessage(char const* kind, xercesc::SAXParseException const& exception) const {
    auto const* const text = exception.getMessage();
    return composeXmlMessage(kind, text ? toMessageText(text) : "", mFileName,
                             {exception.getLineNumber(), exception.getColumnNumber()});
}

void XercesDocument::Releaser::operator()(xercesc::DOMDocument* document) const { document->release(); }

} // namespace kivo::configuration
