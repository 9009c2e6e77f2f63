#pragma once

#include "registry/xml/xerces/InputRefuser.h"

#include <xercesc/validators/DTD/DocTypeHandler.hpp>

namespace kivo::configuration {

/// Looks at a document type declaration while it is read, and refuses what reaches outside of the file, or makes a
/// small file large in ways that the parser does not limit:
///
/// - an external subset, external entities, and parameter entities of any kind
/// - more than 1,000 entities, or an entity of more than 1,000 characters
/// - more than 1,000 attribute definitions, or an attribute list after an entity: entities in default values are
///   expanded without being counted
class DocumentTypeGuard final : public xercesc::DocTypeHandler {
public:
    /// @param refuser must outlive this object
    explicit DocumentTypeGuard(InputRefuser const& refuser);

    void doctypeDecl(xercesc::DTDElementDecl const& root, XMLCh const* publicId, XMLCh const* systemId,
                     bool hasInternalSubset, bool hasExternalSubset) override;
    void entityDecl(xercesc::DTDEntityDecl const& entity, bool isParameterEntity, bool isIgnored) override;
    void startAttList(xercesc::DTDElementDecl const& element) override;
    void attDef(xercesc::DTDElementDecl const& element, xercesc::DTDAttDef const& attribute, bool isIgnored) override;

    /// @name Harmless.
    /// @{
    void doctypeComment(XMLCh const*) override {}
    void doctypePI(XMLCh const*, XMLCh const*) override {}
    void doctypeWhitespace(XMLCh const*, XMLSize_t) override {}
    void elementDecl(xercesc::DTDElementDecl const&, bool) override {}
    void endAttList(xercesc::DTDElementDecl const&) override {}
    void endIntSubset() override {}
    void endExtSubset() override {}
    void resetDocType() override {}
    void notationDecl(xercesc::XMLNotationDecl const&, bool) override {}
    void startIntSubset() override {}
    void startExtSubset() override {}
    void TextDecl(XMLCh const*, XMLCh const*) override {}
    /// @}

private:
    InputRefuser const& mRefuser;
    unsigned int mEntities = 0;
    unsigned int mAttributes = 0;
};

} // namespace kivo::configuration
