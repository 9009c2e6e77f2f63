#include "kernel/kvProcessInit.h"

#include "registry/XercesLibraryInit.h"

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <memory>

namespace kivo::configuration {

XercesLibraryInit::XercesLibraryInit() {
    xercesc::XMLPlatformUtils::Initialize(xercesc::XMLUni::fgXercescDefaultLocale, nullptr, nullptr, nullptr);
}

XercesLibraryInit::~XercesLibraryInit() { xercesc::XMLPlatformUtils::Terminate(); }

void XercesLibraryInit::keepOpen() {
    // Never closed, hence never destroyed.
    [[maybe_unused]] static auto const* const scope = std::make_unique<XercesLibraryInit>().release();
}

} // namespace kivo::configuration
