#pragma once

#include <string>

// Calls virtual operations of the library's objects through classes of its own that only state an order. Each function
// takes the address of an object and reports what the operations returned, one after the other.

namespace kivo::test {

std::string callParameter(void* parameter);
std::string callGroup(void* group);
std::string callValue(void* value);
std::string callValueGroup(void* group);
std::string callHandle(void* handle);
std::string callValidator(void* validator, void const* value);
std::string callProvider(void* provider, void const* specification, void* result);
std::string callException(void* exception);

} // namespace kivo::test
