#pragma once

#include "schema/StoredOrigin.h"

namespace kivo::configuration {

/// An exception that says where what it is about was given.
template <class Exception>
Exception located(StoredOrigin const& origin, Exception exception) {
    exception.setOrigin(origin.toOrigin());
    return exception;
}

} // namespace kivo::configuration
