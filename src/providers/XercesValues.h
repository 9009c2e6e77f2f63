#pragma once

#include <xercesc/dom/DOMElement.hpp>

namespace kivo::configuration {

class ParameterValueGroup;

/// The tree of one element and all below it, as Xerces-C read it. Texts and comments do not count. Only the static
/// library kivo-configuration-internal holds this, for tests and for hosts that want no dlopen.
/// @return owned by the caller
/// @throws kivo::ContractViolationException "element != 0"
ParameterValueGroup* getGroupFromXmlElement(xercesc::DOMElement* element);

} // namespace kivo::configuration
