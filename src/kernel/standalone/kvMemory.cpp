#include "kernel/kvMemory.h"

#include <cstdlib>

void* kvsMalloc(std::size_t size) { return std::malloc(size); }

void kvsFree(void* memory) { std::free(memory); }
