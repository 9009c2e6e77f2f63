#pragma once

#include <cstddef>

namespace kivo::configuration {

/// How much a document may hold, whichever parser reads it. The time or memory that one parser needs grows out of
/// proportion beyond that.
class XmlLimits {
public:
    static constexpr std::size_t MAX_DEPTH = 1000;
    static constexpr std::size_t MAX_NAMES = 20000; ///< different ones, of elements and attributes together
    static constexpr std::size_t MAX_ATTRIBUTES = 10000;
    static constexpr std::size_t MANY_ATTRIBUTES = 1000;
    /// What the squares of the attribute counts of elements that have many may add up to.
    static constexpr std::size_t MAX_ATTRIBUTE_SQUARES = MAX_ATTRIBUTES * MAX_ATTRIBUTES;

    /// Counts an element's attributes. @return whether the squares are within their limit
    bool countAttributes(std::size_t count) {
        mAttributeSquares += count > MANY_ATTRIBUTES ? count * count : 0;
        return mAttributeSquares <= MAX_ATTRIBUTE_SQUARES;
    }

private:
    std::size_t mAttributeSquares = 0;
};

} // namespace kivo::configuration
