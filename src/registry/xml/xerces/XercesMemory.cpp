#include "kernel/kvProcessInit.h"

#include "registry/xml/xerces/XercesMemory.h"

#include <xercesc/util/OutOfMemoryException.hpp>

#include <functional>
#include <iterator>
#include <new>

namespace kivo::configuration {

void* XercesMemory::allocate(XMLSize_t size) {
    auto* block = ::operator new(size, std::nothrow);
    if (!block) {
        block = takeReserve(size);
    }
    if (!block) {
        throw xercesc::OutOfMemoryException();
    }
    return block;
}

void XercesMemory::deallocate(void* block) {
    std::less<void const*> const isBefore;
    if (isBefore(block, mReserve) || !isBefore(block, std::end(mReserve))) {
        ::operator delete(block);
    }
}

void* XercesMemory::takeReserve(std::size_t size) {
    constexpr auto ALIGNMENT = alignof(std::max_align_t);
    if (size > sizeof(mReserve) - mReserved) {
        return nullptr;
    }
    auto* const block = mReserve + mReserved;
    mReserved += (size + ALIGNMENT - 1) / ALIGNMENT * ALIGNMENT;
    return block;
}

} // namespace kivo::configuration
