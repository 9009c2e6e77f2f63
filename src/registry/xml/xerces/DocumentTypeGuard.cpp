#include "kernel/kvProcessInit.h"

#include "registry/xml/xerces/DocumentTypeGuard.h"

#include "registry/xml/xerces/XmlText.h"

#include <xercesc/validators/DTD/DTDEntityDecl.hpp>

namespace kivo::configuration {

namespace {

constexpr unsigned int MAX_ENTITIES = 1000;
constexpr XMLSize_t MAX_ENTITY_LENGTH = 1000;
constexpr unsigned int MAX_ATTRIBUTE_DEFINITIONS = 1000;

std::u16string describe(XMLCh const* kind, xercesc::DTDEntityDecl const& entity, std::u16string const& problem) {
    return std::u16string(kind).append(u" ").append(InputRefuser::quote(entity.getName())).append(u" ").append(problem);
}

std::u16string moreThan(XMLSize_t limit) { return toXmlText("more than " + std::to_string(limit) + " "); }

} // namespace

DocumentTypeGuard::DocumentTypeGuard(InputRefuser const& refuser) : mRefuser(refuser) {}

void DocumentTypeGuard::doctypeDecl(xercesc::DTDElementDecl const&, XMLCh const*, XMLCh const*, bool,
                                    bool hasExternalSubset) {
    if (hasExternalSubset) {
        mRefuser.refuse(u"an external document type declaration is not accepted");
    }
}

void DocumentTypeGuard::entityDecl(xercesc::DTDEntityDecl const& entity, bool isParameterEntity, bool) {
    if (isParameterEntity) {
        mRefuser.refuse(describe(u"the parameter entity", entity, u"is not accepted"));
    }
    if (entity.isExternal()) {
        mRefuser.refuse(describe(u"the external entity", entity, u"is not accepted"));
    }
    if (entity.getValueLen() > MAX_ENTITY_LENGTH) {
        mRefuser.refuse(describe(u"the entity", entity, u"has " + moreThan(MAX_ENTITY_LENGTH) + u"characters"));
    }
    if (++mEntities > MAX_ENTITIES) {
        mRefuser.refuse(moreThan(MAX_ENTITIES) + u"entities are declared");
    }
}

void DocumentTypeGuard::startAttList(xercesc::DTDElementDecl const&) {
    if (mEntities > 0) {
        mRefuser.refuse(u"an attribute list behind an entity is not accepted");
    }
}

void DocumentTypeGuard::attDef(xercesc::DTDElementDecl const&, xercesc::DTDAttDef const&, bool) {
    if (++mAttributes > MAX_ATTRIBUTE_DEFINITIONS) {
        mRefuser.refuse(moreThan(MAX_ATTRIBUTE_DEFINITIONS) + u"attributes are declared");
    }
}

} // namespace kivo::configuration
