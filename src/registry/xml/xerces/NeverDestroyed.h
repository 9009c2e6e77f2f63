#pragma once

namespace kivo::configuration {

/// Holds an object that is not destroyed with the other static objects, some of which still use it while the process
/// ends.
template <class Object>
union NeverDestroyed {
    NeverDestroyed() : object() {}
    ~NeverDestroyed() {}

    Object object;
};

} // namespace kivo::configuration
