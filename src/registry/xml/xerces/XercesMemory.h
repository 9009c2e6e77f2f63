#pragma once

#include <xercesc/framework/MemoryManager.hpp>

#include <cstddef>

namespace kivo::configuration {

/// Where the XML library gets its memory. The library needs some even to end, and ends the process when it gets none
/// there. So a little is kept ready for that.
class XercesMemory final : public xercesc::MemoryManager {
public:
    /// From now on, the reserve is given out where there is no other memory; until the next call, each byte once.
    void openReserve() { mReserved = 0; }

    /// What is asked for from now on gets no reserve.
    void closeReserve() { mReserved = sizeof(mReserve); }

    xercesc::MemoryManager* getExceptionMemoryManager() override { return this; }

    /// @throws xercesc::OutOfMemoryException memory has run out
    void* allocate(XMLSize_t size) override;
    void deallocate(void* block) override;

private:
    void* takeReserve(std::size_t size);

    alignas(std::max_align_t) std::byte mReserve[4096];
    std::size_t mReserved = sizeof(mReserve); // how much of it cannot be given out
};

} // namespace kivo::configuration
