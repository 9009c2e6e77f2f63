#include "Harness.h"

#include <configuration/Flags.h>

#include <cstdio>
#include <cstdlib>

/// Of <sanitizer/allocator_interface.h>, which not every compiler brings along.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();

namespace kivo::fuzz {

namespace {

// Far above caches that fill once, such as the text of the last representation, and the entry of each manager in the
// list of atexit; far below what a leak in a long run comes to.
constexpr long MAX_RETAINED_BYTES = 64L << 20;

} // namespace

Input::Input(std::uint8_t const* data, std::size_t size) {
    if (size > 0) {
        flags = data[0] & (configuration::RESOLVE_FLAG_NAMES | configuration::STRICT_RECOGNITION);
        isAlternative = (data[0] & 4) != 0;
        text.assign(data + 1, data + size);
    }
}

MemoryWatch::MemoryWatch() : mBefore(__sanitizer_get_current_allocated_bytes()) {}

MemoryWatch::~MemoryWatch() {
    static long retained = 0;
    retained += static_cast<long>(__sanitizer_get_current_allocated_bytes()) - static_cast<long>(mBefore);
    if (retained > MAX_RETAINED_BYTES) {
        std::fprintf(stderr, "the inputs left %ld bytes behind\n", retained);
        std::abort();
    }
}

} // namespace kivo::fuzz
