#pragma once

#include <string>

// Calls virtual operations of the library's objects through classes of its own that only state an order. Each function
// takes the addresses of objects and reports what the operations returned, a blank behind each.

namespace kivo::test {

std::string callParameter(void* parameter);
std::string callProvider(void* provider, void const* specification, void* result);
std::string callException(void* exception);

} // namespace kivo::test
