#include "Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<unsigned long> allocations{0};

} // namespace

unsigned long kivo::benchmarks::countedAllocations() { return allocations.load(std::memory_order_relaxed); }

void* operator new(std::size_t size) {
    // Not fetch_add(): the benchmarks have one thread, and a locked addition would show in their figures.
    allocations.store(allocations.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
    if (void* memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

// Not inlined: the compiler must not see a block of `new` end in free().
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
