// Opens the library again and again, as a host opens a plug-in, and closes it: nothing may add up.
//
//     plugin-rounds <library>

#include "support/TemporaryInstallation.h"

#include <dlfcn.h>
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <iterator>

namespace {

struct State {
    std::ptrdiff_t mappings;
    std::size_t heap;
};

State currentState() {
    std::ifstream stream("/proc/self/maps");
    auto const mappings = std::count(std::istreambuf_iterator<char>(stream), {}, '\n');
    auto const heap = mallinfo2();
    return {mappings, heap.uordblks + heap.hblkhd};
}

/// @return whether the plug-in could be made
bool runRound(char const* library) {
    auto* const handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        throw std::runtime_error(dlerror());
    }
    auto const createPlugin = reinterpret_cast<void* (*)()>(dlsym(handle, "createPlugin"));
    bool isMade = false;
    try {
        isMade = createPlugin() != nullptr;
    } catch (std::exception const&) { // of the library, which is about to be closed
    }
    dlclose(handle);
    return isMade;
}

bool runRounds(char const* library, char const* file, bool isGood) {
    kivo::test::TemporaryInstallation const installation;
    installation.write("etc/kivobase.crg", file);
    State tenth{};
    for (int round = 1; round <= 100; ++round) {
        if (runRound(library) != isGood) {
            return false;
        }
        tenth = round == 10 ? currentState() : tenth;
    }
    auto const last = currentState();
    auto const growth = static_cast<long>(last.heap) - static_cast<long>(tenth.heap);
    std::printf("%s: mappings %td, then %td; heap grew by %ld bytes\n", file, tenth.mappings, last.mappings, growth);
    return last.mappings == tenth.mappings && growth <= 64L << 10;
}

} // namespace

int main(int, char** arguments) {
#ifdef __SANITIZE_ADDRESS__
    return 77; // it keeps what is released
#endif
    bool const isPassed = runRounds(arguments[1], "<ConfigurationRegistry/>", true) &&
                          runRounds(arguments[1], "<x:ConfigurationRegistry xmlns:x='u'/>", true) &&
                          runRounds(arguments[1], "<ConfigurationRegistry>", false);
    return isPassed ? 0 : 1;
}
