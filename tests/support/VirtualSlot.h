#pragma once

// The positions of virtual operations in their class's table, which are part of the binary interface. The two slots of
// the destructor come first, so that the first operation behind it has position 2.
//
//     EXPECT_THAT(slotsOf(&Value::asBoolean, &Value::asString), ElementsAre(2, 3));

#include <cstdint>
#include <cstring>
#include <vector>

namespace kivo::test {

/// The position of one operation; a number beyond all tables when it is not virtual.
template <class Member>
std::uintptr_t slotOf(Member member) {
    std::uintptr_t words[2];
    static_assert(sizeof(words) == sizeof(member));
    std::memcpy(words, &member, sizeof(words));
#if defined(__aarch64__)
    auto const offset = words[0];
#else
    auto const offset = words[0] - 1; // an odd word marks a virtual operation
#endif
    return offset / sizeof(void*);
}

template <class... Members>
std::vector<std::uintptr_t> slotsOf(Members... members) {
    return {slotOf(members)...};
}

} // namespace kivo::test
