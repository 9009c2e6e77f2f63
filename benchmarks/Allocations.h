#pragma once

namespace kivo::benchmarks {

/// The number of blocks that the process has asked `new` for.
unsigned long countedAllocations();

} // namespace kivo::benchmarks
