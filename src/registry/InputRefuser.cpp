#include "kernel/kvProcessInit.h"

#include "registry/InputRefuser.h"

#include <xercesc/util/XMLUni.hpp>

namespace kivo::configuration {

InputRefuser::InputRefuser(xercesc::XMLErrorReporter& reporter, xercesc::Locator const& locator)
    : mReporter(reporter), mLocator(locator) {}

void InputRefuser::refuse(std::u16string const& reason) const {
    mReporter.error(0, xercesc::XMLUni::fgXMLErrDomain, xercesc::XMLErrorReporter::ErrType_Fatal, reason.c_str(),
                    mLocator.getSystemId(), mLocator.getPublicId(), mLocator.getLineNumber(),
                    mLocator.getColumnNumber());
    throw Refused();
}

} // namespace kivo::configuration
