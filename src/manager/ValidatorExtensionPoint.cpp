#include "kernel/kvProcessInit.h"

#include "manager/ValidatorExtensionPoint.h"

#include "kernel/kvMemory.h"

#include <new>

namespace kivo::configuration {

namespace {

kvExtensionPoint* makePoint() {
    void* const storage = kvsMalloc(sizeof(kvExtensionPoint));
    if (!storage) {
        throw std::bad_alloc();
    }
    try {
        return new (storage) kvExtensionPoint("ParameterValidator", true, true);
    } catch (...) {
        kvsFree(storage);
        throw;
    }
}

} // namespace

ValidatorExtensionPoint::ValidatorExtensionPoint() : mPoint(makePoint()) {}

unsigned long ValidatorExtensionPoint::getNumberOfPlugins() const { return mPoint->getNumberOfPlugins(); }

void* ValidatorExtensionPoint::createImplementation(unsigned long index) const {
    auto* plugin = mPoint->getPlugin(index);
    return plugin ? plugin->createImplementation() : nullptr;
}

void ValidatorExtensionPoint::Release::operator()(kvExtensionPoint* point) const {
    point->~kvExtensionPoint();
    kvsFree(point);
}

} // namespace kivo::configuration
