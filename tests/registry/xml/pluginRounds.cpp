// Opens the library again and again, as a host opens a plug-in, and closes it: nothing may add up. Then opens a copy of
// it that lies where no module is.
//
//     plugin-rounds <library> <kernel library>

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

/// @return what the library says when the plug-in cannot be made; empty when it can
std::string runRound(char const* library) {
    auto* const handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        throw std::runtime_error(dlerror());
    }
    auto const createPlugin = reinterpret_cast<void* (*)()>(dlsym(handle, "createPlugin"));
    std::string fault;
    try {
        createPlugin();
    } catch (std::exception const& error) { // of the library, which is about to be closed
        fault = error.what();
    }
    dlclose(handle);
    return fault;
}

bool runRounds(char const* library, char const* file, bool isGood) {
    kivo::test::TemporaryInstallation const installation;
    installation.write("etc/kivobase.crg", file);
    State tenth{};
    for (int round = 1; round <= 100; ++round) {
        if (runRound(library).empty() != isGood) {
            return false;
        }
        tenth = round == 10 ? currentState() : tenth;
    }
    auto const last = currentState();
    auto const growth = static_cast<long>(last.heap) - static_cast<long>(tenth.heap);
    std::printf("%s: mappings %td, then %td; heap grew by %ld bytes\n", file, tenth.mappings, last.mappings, growth);
    return last.mappings == tenth.mappings && growth <= 64L << 10;
}

/// @param file  what it holds, or the path of what it links to
/// @param fault what the library says without its module, up to the name of the file
bool isTold(char const* library, char const* file, std::string const& fault) {
    kivo::test::TemporaryInstallation const installation;
    auto const path = installation.write("etc/kivobase.crg", file);
    if (*file == '/') {
        std::filesystem::remove(path);
        std::filesystem::create_symlink(file, path);
    }
    auto const copy = installation.at("copy.so");
    std::filesystem::copy_file(library, copy);
    auto const told = runRound(copy.c_str());
    std::printf("%s\n", told.c_str());
    return told.starts_with("XML ERROR: " + fault + ". File: \"" + path + "\".");
}

} // namespace

int main(int, char** arguments) {
    char const* const library = arguments[1];
    dlopen(arguments[2], RTLD_NOW); // which the copy does not find
    if (!isTold(library, "<a>\n<b></a>", "mismatched tag") ||
        !isTold(library, "/proc/self/mem", "the file cannot be read (system error 5)") ||
        !isTold(library, "<a xmlns='u'/>", "this document needs the Xerces-C module, which cannot be opened")) {
        return 1;
    }
#ifdef __SANITIZE_ADDRESS__
    return 77; // it keeps what is released
#endif
    bool const isPassed = runRounds(library, "<ConfigurationRegistry/>", true) &&
                          runRounds(library, "<x:ConfigurationRegistry xmlns:x='u'/>", true) &&
                          runRounds(library, "<ConfigurationRegistry>", false);
    return isPassed ? 0 : 1;
}
