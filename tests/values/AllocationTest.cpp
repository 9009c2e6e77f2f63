#include <configuration/ValueGroup.h>

#include "support/Schema.h"
#include "support/ValueTree.h"

#include <cstdlib>
#include <gtest/gtest.h>

static unsigned long allocations = 0;

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}
// Not inlined: the compiler must not see a block of `new` end in free().
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

using namespace kivo::configuration;
using namespace kivo::test;

static unsigned long allocationsOf(auto&& call) {
    auto const before = allocations;
    call();
    return allocations - before;
}

TEST(Allocation, ATypedReadAllocatesItsHandleOnly) {
    for (int const size : {3, 300}) {
        Items items;
        auto const tree = valueGroup("root");
        for (int i = 0; i < size; ++i) {
            auto const id = "a_long_name_that_no_small_string_holds_" + std::to_string(i);
            tree->addItem(value(items.parameter({.id = id.c_str()}), "7").release());
        }
        ValueGroup const root(tree.get());
        char const* const name = "A_LONG_NAME_THAT_NO_SMALL_STRING_HOLDS_2";
        root.getValue(name); // builds the index of the large group
        auto const ofHandle = allocationsOf([&] { Value const handle(tree->getValue(name), false); });
        EXPECT_GT(ofHandle, 0u);
        EXPECT_EQ(allocationsOf([&] { EXPECT_STREQ(root.getValue(name).asString(), "7"); }), ofHandle) << size;
        EXPECT_EQ(allocationsOf([&] { EXPECT_TRUE(root.getValue("none").isNull()); }), ofHandle) << size;
    }
}
