#pragma once

#include <algorithm>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

// What the libraries under comparison are given alike: the same names, types, values and order of reads.

namespace kivo::benchmarks {

/// The first tenth of the parameters comes from the command line, the next half from the application.
struct Subjects {
    explicit Subjects(std::size_t count) : names(count), texts(count), readOrder(count) {
        for (std::size_t i = 0; i < count; ++i) {
            char name[32];
            std::snprintf(name, sizeof(name), "parameter%05zu", i);
            names[i] = name;
            texts[i] = std::to_string(i);
            readOrder[i] = i;
        }
        std::shuffle(readOrder.begin(), readOrder.end(), std::mt19937(42));
        arguments.emplace_back("tool");
        for (std::size_t i = 0; i < fromCommandLine(); ++i) {
            arguments.push_back(names[i]);
            arguments.push_back(texts[i]);
        }
    }

    std::size_t count() const { return names.size(); }
    std::size_t fromCommandLine() const { return count() / 10; }
    std::size_t fromApplication() const { return count() / 2; }

    /// An argument vector whose flags begin with a prefix.
    std::vector<std::string> argumentsWith(char const* prefix) const {
        auto prefixed = arguments;
        for (std::size_t i = 1; i < prefixed.size(); i += 2) {
            prefixed[i].insert(0, prefix);
        }
        return prefixed;
    }

    std::vector<std::string> names;
    std::vector<std::string> texts;
    std::vector<std::size_t> readOrder;
    std::vector<std::string> arguments;
};

inline std::vector<char const*> pointersTo(std::vector<std::string> const& strings) {
    std::vector<char const*> pointers(strings.size());
    std::transform(strings.begin(), strings.end(), pointers.begin(), [](auto const& s) { return s.c_str(); });
    return pointers;
}

} // namespace kivo::benchmarks
