// Hands every file of a folder to a fuzz target, as the fuzzer does before it makes inputs of its own.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <malloc.h>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

/// What the harness asks a sanitizer, where there is none.
extern "C" [[gnu::weak]] std::size_t __sanitizer_get_current_allocated_bytes() { return mallinfo2().uordblks; }

int main(int, char** arguments) {
    int count = 0;
    for (auto const& seed : std::filesystem::directory_iterator(arguments[1])) {
        std::puts(seed.path().c_str());
        std::ifstream file(seed.path(), std::ios::binary);
        std::string const input(std::istreambuf_iterator<char>(file), {});
        LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(input.data()), input.size());
        ++count;
    }
    return count > 0 ? 0 : 1;
}
