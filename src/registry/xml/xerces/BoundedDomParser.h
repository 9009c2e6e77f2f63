#pragma once

#include "registry/xml/XmlLimits.h"
#include "registry/xml/xerces/DocumentTypeGuard.h"
#include "registry/xml/xerces/InputRefuser.h"

#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/SecurityManager.hpp>

#include <cstddef>
#include <unordered_set>
#include <utility>
#include <vector>

namespace kivo::configuration {

class ByteSource;

/// Reads the elements and attributes of a file into a document, without validation and without any other file or
/// address, and refuses, as an error with line and column, what would take time or memory out of proportion to the
/// file:
///
/// - elements nested deeper than 1,000 levels, or within more than 1,000 declarations of namespaces
/// - elements with more than 10,000 attributes, or many with more than 1,000: their time grows with the square
/// - more than 20,000 different names: the time that a document takes grows with their square
/// - more than 1,000 expansions of entities
/// - what DocumentTypeGuard refuses
/// - more than 10,000,000 characters, or 100,000 attributes, that the file leaves to declared defaults
///
/// A name or text that the local code page cannot hold is refused too.
class BoundedDomParser final : public xercesc::XercesDOMParser {
public:
    /// @param errorHandler must outlive the parser
    explicit BoundedDomParser(xercesc::ErrorHandler& errorHandler);

    /// Reads the whole file, or up to the first error that cannot be passed.
    /// @throws std::bad_alloc memory has run out
    void read(ByteSource const& source);

    /// The line in which each element's start tag ends, in the order of the tags.
    std::vector<XMLFileLoc> takeLines() { return std::move(mLines); }

    void XMLDecl(XMLCh const* version, XMLCh const* encoding, XMLCh const* standalone,
                 XMLCh const* actualEncoding) override;
    void startElement(xercesc::XMLElementDecl const& declaration, unsigned int uriId, XMLCh const* prefix,
                      xercesc::RefVectorOf<xercesc::XMLAttr> const& attributes, XMLSize_t attributeCount, bool isEmpty,
                      bool isRoot) override;
    void endElement(xercesc::XMLElementDecl const& declaration, unsigned int uriId, bool isRoot,
                    XMLCh const* prefix) override;

    /// @name What documents are read without.
    /// @{
    void docCharacters(XMLCh const*, XMLSize_t, bool) override {}
    void ignorableWhitespace(XMLCh const*, XMLSize_t, bool) override {}
    void docComment(XMLCh const*) override {}
    void docPI(XMLCh const*, XMLCh const*) override {}
    void startEntityReference(xercesc::XMLEntityDecl const&) override {}
    void endEntityReference(xercesc::XMLEntityDecl const&) override {}
    /// @}

private:
    void countAttributes(XMLSize_t count);
    void countDefaults(xercesc::XMLElementDecl const& declaration);
    void checkName(XMLCh const* name);
    void checkText(XMLCh const* text) const;

    xercesc::SecurityManager mSecurityManager;
    InputRefuser mRefuser;
    DocumentTypeGuard mDocumentTypeGuard;
    bool mChecksTexts;
    /// For each open element the number of namespaces declared in it and around it.
    std::vector<XMLSize_t> mNamespaces;
    XmlLimits mLimits;
    /// Hashes of the names seen.
    std::unordered_set<std::size_t> mNames;
    XMLSize_t mDefaultedSize = 0;
    std::vector<XMLFileLoc> mLines;
};

} // namespace kivo::configuration
