#include "kernel/kvProcessInit.h"

#include "registry/xml/xerces/XercesLibraryInit.h"

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

namespace kivo::configuration {

namespace {

void open() {
    xercesc::XMLPlatformUtils::Initialize(xercesc::XMLUni::fgXercescDefaultLocale, nullptr, nullptr, nullptr);
}

} // namespace

XercesLibraryInit::XercesLibraryInit() { open(); }

XercesLibraryInit::~XercesLibraryInit() { xercesc::XMLPlatformUtils::Terminate(); }

void XercesLibraryInit::keepOpen() {
    [[maybe_unused]] static bool const isOpen = (open(), true); // never closed
}

} // namespace kivo::configuration
