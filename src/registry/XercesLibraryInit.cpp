#include "kernel/kvProcessInit.h"

#include "registry/XercesLibraryInit.h"

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

namespace kivo::configuration {

XercesLibraryInit::XercesLibraryInit() {
    xercesc::XMLPlatformUtils::Initialize(xercesc::XMLUni::fgXercescDefaultLocale, nullptr, nullptr, nullptr);
}

XercesLibraryInit::~XercesLibraryInit() { xercesc::XMLPlatformUtils::Terminate(); }

} // namespace kivo::configuration
