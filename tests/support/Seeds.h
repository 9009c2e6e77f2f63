#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace kivo::test {

/// Runs random cases until one fails, whose seed is in the message. The environment may say which: KIVO_FIRST_SEED
/// begins with another one than 1, KIVO_CASES has another number of them.
template <class Function>
void forEachSeed(unsigned long count, Function function) {
    auto const number = [](char const* name, unsigned long otherwise) {
        char const* const text = std::getenv(name);
        return text ? std::stoul(text) : otherwise;
    };
    auto const first = number("KIVO_FIRST_SEED", 1);
    auto const end = first + number("KIVO_CASES", count);
    for (auto seed = first; seed < end && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        function(seed);
    }
}

} // namespace kivo::test
