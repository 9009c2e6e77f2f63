#include "kernel/kvProcessInit.h"

#include "registry/xml/xerces/XercesLibraryInit.h"

#include "registry/xml/xerces/NeverDestroyed.h"
#include "registry/xml/xerces/XercesMemory.h"

#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PanicHandler.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <new>

namespace kivo::configuration {

namespace {

/// The library's own handler ends the process. Here, panics mean that memory has run out.
class Thrower final : public xercesc::PanicHandler {
public:
    void panic(PanicReasons) override { throw std::bad_alloc(); }
};

XercesMemory& memory() {
    static NeverDestroyed<XercesMemory> memory;
    return memory.object;
}

} // namespace

XercesLibraryInit::XercesLibraryInit() {
    static NeverDestroyed<Thrower> handler;
    try {
        xercesc::XMLPlatformUtils::Initialize(xercesc::XMLUni::fgXercescDefaultLocale, nullptr, &handler.object,
                                              &memory());
    } catch (...) { // OutOfMemoryException, too, which is no std::exception
        throw std::bad_alloc();
    }
}

XercesLibraryInit::~XercesLibraryInit() {
    memory().openReserve();
    xercesc::XMLPlatformUtils::Terminate();
    memory().closeReserve();
}

} // namespace kivo::configuration
