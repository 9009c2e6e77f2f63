// The whole input is a size or duration. What is accepted has a plainest spelling, which means the same, and so does
// the input after some zeros.

#include "schema/QuantityText.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

template <class Parse>
void check(std::string const& text, Parse parse, char const* plainUnit) {
    if (auto const amount = parse(text)) {
        require(parse(std::to_string(*amount) + plainUnit) == amount);
        require(parse("000" + text) == amount);
        require(!parse(text + " ") && !parse("-" + text));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(data, data + size);
    check(text, kivo::configuration::parseSize, "");
    check(text, kivo::configuration::parseDuration, "ms");
    return 0;
}
