#include "kernel/kvProcessInit.h"

#include "registry/xml/xerces/BoundedDomParser.h"

#include "registry/xml/LocalCodePage.h"
#include "registry/xml/xerces/ByteSource.h"
#include "registry/xml/xerces/XmlText.h"

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/framework/XMLAttDefList.hpp>
#include <xercesc/framework/XMLAttr.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>

#include <algorithm>
#include <functional>
#include <new>
#include <string_view>

namespace kivo::configuration {

namespace {

constexpr XMLSize_t MAX_NAMESPACES = 1000;
constexpr XMLSize_t MAX_ENTITY_EXPANSIONS = 1000;
constexpr XMLSize_t MAX_DEFAULTED_SIZE = 10000000; // in characters, of which a node counts as many as this:
constexpr XMLSize_t ATTRIBUTE_SIZE = 100;

/// A reason that tells the limit it stands for.
std::u16string moreThan(std::string const& before, XMLSize_t limit, std::string const& after) {
    return toXmlText(before + " more than " + std::to_string(limit) + " " + after);
}

/// Whether an attribute declares a namespace: "xmlns", "xmlns:p". (Others that begin so may be counted as well.)
bool declaresNamespace(XMLCh const* name) { return *name == u'x' && std::u16string_view(name).starts_with(u"xmlns"); }

} // namespace

BoundedDomParser::BoundedDomParser(xercesc::ErrorHandler& errorHandler)
    : mRefuser(*this, *getScanner()->getLocator()),
      mDocumentTypeGuard(mRefuser),
      mChecksTexts(!isLocalCodePageUnicode()) {
    setErrorHandler(&errorHandler);
    setValidationScheme(Val_Never);
    setDoNamespaces(true);
    setDoSchema(false);
    // The guard refuses both; should it ever miss one, nothing is opened.
    setLoadExternalDTD(false);
    setDisableDefaultEntityResolution(true);
    mSecurityManager.setEntityExpansionLimit(MAX_ENTITY_EXPANSIONS);
    setSecurityManager(&mSecurityManager);
    getScanner()->setDocTypeHandler(&mDocumentTypeGuard);
}

void BoundedDomParser::read(ByteSource const& source) {
    try {
        parse(source);
    } catch (InputRefuser::Refused const&) { // reported already
    } catch (xercesc::OutOfMemoryException const&) {
        throw std::bad_alloc();
    }
}

void BoundedDomParser::XMLDecl(XMLCh const* version, XMLCh const* encoding, XMLCh const* standalone,
                               XMLCh const* actualEncoding) {
    if (!equalsAscii(version, "1.0") && !equalsAscii(version, "1.1")) {
        mRefuser.refuse(u"the XML version " + InputRefuser::quote(version) + u" is unknown");
    }
    XercesDOMParser::XMLDecl(version, encoding, standalone, actualEncoding);
}

void BoundedDomParser::startElement(xercesc::XMLElementDecl const& declaration, unsigned int uriId, XMLCh const* prefix,
                                    xercesc::RefVectorOf<xercesc::XMLAttr> const& attributes, XMLSize_t attributeCount,
                                    bool isEmpty, bool isRoot) {
    if (mNamespaces.size() == XmlLimits::MAX_DEPTH) {
        mRefuser.refuse(moreThan("elements are nested", XmlLimits::MAX_DEPTH, "levels deep"));
    }
    countAttributes(attributeCount);
    if (declaration.hasAttDefs()) {
        countDefaults(declaration);
    }
    checkName(declaration.getBaseName());
    auto lastUriId = uriId;
    auto namespaces = mNamespaces.empty() ? 0 : mNamespaces.back();
    for (XMLSize_t i = 0; i < attributeCount; ++i) {
        auto const& attribute = *attributes.elementAt(i);
        checkName(attribute.getQName());
        checkText(attribute.getValue());
        lastUriId = std::max(lastUriId, attribute.getURIId());
        namespaces += declaresNamespace(attribute.getQName());
    }
    if (mNames.size() > XmlLimits::MAX_NAMES ||
        lastUriId > XmlLimits::MAX_NAMES) { // ids count the namespaces of the document
        mRefuser.refuse(moreThan("there are", XmlLimits::MAX_NAMES, "different names"));
    }
    if (namespaces > MAX_NAMESPACES) {
        mRefuser.refuse(moreThan("there are", MAX_NAMESPACES, "namespaces around an element"));
    }
    mNamespaces.push_back(namespaces);
    mLines.push_back(getScanner()->getLocator()->getLineNumber());
    try {
        XercesDOMParser::startElement(declaration, uriId, prefix, attributes, attributeCount, isEmpty, isRoot);
    } catch (xercesc::DOMException const& fault) { // a declared default can have a name that no document holds
        mRefuser.refuse(fault.getMessage());
    }
}

void BoundedDomParser::endElement(xercesc::XMLElementDecl const& declaration, unsigned int uriId, bool isRoot,
                                  XMLCh const* prefix) {
    mNamespaces.pop_back();
    XercesDOMParser::endElement(declaration, uriId, isRoot, prefix);
}

void BoundedDomParser::countAttributes(XMLSize_t count) {
    if (count > XmlLimits::MAX_ATTRIBUTES) {
        mRefuser.refuse(moreThan("an element has", XmlLimits::MAX_ATTRIBUTES, "attributes"));
    }
    if (!mLimits.countAttributes(count)) {
        mRefuser.refuse(moreThan("too many elements have", XmlLimits::MANY_ATTRIBUTES, "attributes"));
    }
}

/// Each element gets copies of the defaults declared for it.
void BoundedDomParser::countDefaults(xercesc::XMLElementDecl const& declaration) {
    auto const& defaults = declaration.getAttDefList();
    for (XMLSize_t i = 0; i < defaults.getAttDefCount(); ++i) {
        auto const* const value = defaults.getAttDef(i).getValue();
        mDefaultedSize += ATTRIBUTE_SIZE + (value ? xercesc::XMLString::stringLen(value) : 0);
    }
    if (mDefaultedSize > MAX_DEFAULTED_SIZE) {
        mRefuser.refuse(u"the declared defaults of attributes make the document too large");
    }
}

void BoundedDomParser::checkName(XMLCh const* name) {
    mNames.insert(std::hash<std::u16string_view>()(name));
    checkText(name);
}

void BoundedDomParser::checkText(XMLCh const* text) const {
    if (!mChecksTexts) {
        return;
    }
    if (auto const problem = findConversionProblem(text); !problem.empty()) {
        mRefuser.refuse(toXmlText(problem));
    }
}

} // namespace kivo::configuration
