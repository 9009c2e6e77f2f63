#pragma once

#include <memory>
#include <string>
#include <vector>

namespace kivo::configuration {

/// Shows a list of texts as an argument vector, for as long as the list is not changed.
class VectorWrapper {
public:
    explicit VectorWrapper(std::vector<std::string> const& strings)
        : mStrings(strings), mPointers(std::make_unique<char const*[]>(strings.size())) {
        for (std::size_t i = 0; i < strings.size(); ++i) {
            mPointers[i] = strings[i].c_str();
        }
    }

    operator char const* const*() const { return mPointers.get(); }

    int size() const { return static_cast<int>(mStrings.size()); }

    /// Copies of the entries of an argument vector; a null entry becomes an empty text.
    static std::vector<std::string> toVector(unsigned long count, char const* const* values) {
        std::vector<std::string> strings;
        strings.reserve(count);
        for (unsigned long i = 0; i < count; ++i) {
            strings.emplace_back(values[i] ? values[i] : "");
        }
        return strings;
    }

private:
    std::vector<std::string> const& mStrings;
    std::unique_ptr<char const*[]> mPointers;
};

} // namespace kivo::configuration
