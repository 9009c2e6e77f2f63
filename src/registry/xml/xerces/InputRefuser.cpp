#include "kernel/kvProcessInit.h"

#include "registry/xml/xerces/InputRefuser.h"

#include <xercesc/util/XMLUni.hpp>

#include <string_view>

namespace kivo::configuration {

namespace {

constexpr std::size_t MAX_QUOTED_LENGTH = 1000;

} // namespace

InputRefuser::InputRefuser(xercesc::XMLErrorReporter& reporter, xercesc::Locator const& locator)
    : mReporter(reporter), mLocator(locator) {}

void InputRefuser::refuse(std::u16string const& reason) const {
    mReporter.error(0, xercesc::XMLUni::fgXMLErrDomain, xercesc::XMLErrorReporter::ErrType_Fatal, reason.c_str(),
                    mLocator.getSystemId(), mLocator.getPublicId(), mLocator.getLineNumber(),
                    mLocator.getColumnNumber());
    throw Refused();
}

std::u16string InputRefuser::quote(XMLCh const* text) {
    return std::u16string(u"'").append(std::u16string_view(text).substr(0, MAX_QUOTED_LENGTH)).append(u"'");
}

} // namespace kivo::configuration
