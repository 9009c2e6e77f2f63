// The whole input is an XML file. What Expat finishes, Xerces-C must accept, and see the same tree.

#include "Harness.h"

#include "registry/xml/Readers.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using namespace kivo;
    static fuzz::Environment const environment;
    fuzz::MemoryWatch const watch;

    auto const file = environment.write("config/values.xml", std::string(data, data + size));
    auto const plain = test::readPlain(file);
    if (plain && *plain != test::readWithXerces(file)) {
        std::fprintf(stderr, "Expat:    %s\nXerces-C: %s\n", plain->c_str(), test::readWithXerces(file).c_str());
        std::abort();
    }
    return 0;
}
