#pragma once

#include <configuration/ConfigurationException.h>

namespace kivo::configuration {

/// The position of an iterator that reads what it stands on. @param position −1 before the first next()
inline unsigned long checkedIteratorPosition(long position, unsigned long count) {
    if (position < 0) {
        throw ConfigurationException("Must call next() before dereferencing an iterator");
    }
    if (static_cast<unsigned long>(position) >= count) {
        throw ConfigurationException("Dereferencing iterator after next() returns false");
    }
    return static_cast<unsigned long>(position);
}

} // namespace kivo::configuration
