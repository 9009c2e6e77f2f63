#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlScope.h"

#include "registry/xml/XmlModuleOpening.h"

#include <mutex>
#include <new>

namespace kivo::configuration {

namespace {

/// What the scopes of a process share. Nothing of it is destroyed when the process ends: static objects that are
/// destroyed later may read files.
struct State {
    std::mutex mutex;
    unsigned int depth = 0;
    XmlModule const* module = nullptr;
} state;

/// A module that has been started, or null.
XmlModule const* startModule() {
    auto const* const module = openXmlModule();
    auto const outcome = module ? module->start() : XML_MODULE_FAILED;
    if (module && outcome != XML_MODULE_DONE) {
        closeXmlModule();
    }
    if (outcome == XML_MODULE_OUT_OF_MEMORY) {
        throw std::bad_alloc();
    }
    return outcome == XML_MODULE_DONE ? module : nullptr;
}

} // namespace

XmlScope::XmlScope() {
    std::scoped_lock const lock(state.mutex);
    ++state.depth;
}

XmlScope::~XmlScope() {
    std::scoped_lock const lock(state.mutex);
    if (--state.depth == 0 && state.module) {
        state.module->stop();
        state.module = nullptr;
        closeXmlModule();
    }
}

XmlModule const* XmlScope::getModule() const {
    std::scoped_lock const lock(state.mutex);
    if (!state.module) {
        state.module = startModule();
    }
    return state.module;
}

} // namespace kivo::configuration
