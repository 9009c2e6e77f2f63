#pragma once

#include <xercesc/dom/DOMElement.hpp>

namespace kivo::configuration {

class ParameterValueGroup;

/// The tree of one element and all below it, for hosts that read XML themselves. Texts and comments do not count.
/// @return owned by the caller
/// @throws kivo::ContractViolationException "element != 0"
ParameterValueGroup* getGroupFromXmlElement(xercesc::DOMElement* element);

} // namespace kivo::configuration
