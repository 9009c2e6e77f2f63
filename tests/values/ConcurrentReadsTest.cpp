#include <configuration/ValueGroup.h>

#include "support/Schema.h"
#include "support/ValueTree.h"

#include <barrier>
#include <gtest/gtest.h>
#include <thread>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

constexpr int THREADS = 4;
constexpr int SETTINGS = 64;

// All threads meet the same finished tree for the first time: flags without a text, and a list without an index.
TEST(ConcurrentReads, ConcurrentFirstReadsOfOneTree) {
    Items items;
    for (int round = 0; round < 20; ++round) {
        auto const tree = valueGroup("root");
        for (int i = 0; i < SETTINGS; ++i) {
            auto const id = "flag" + std::to_string(i);
            auto const* flag =
                items.parameter({.id = id.c_str(), .optional = true, .type = Parameter::BOOLEAN_PARAMETER});
            tree->addItem(value(flag, nullptr).release());
        }
        std::barrier start(THREADS);
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < THREADS; ++thread) {
            threads.emplace_back([&] {
                ValueGroup const settings(tree.get());
                start.arrive_and_wait();
                for (int i = 0; i < SETTINGS; ++i) {
                    auto const name = "FLAG" + std::to_string(i);
                    EXPECT_TRUE(settings.getValue(name.c_str()).asBoolean());
                    EXPECT_STREQ(settings.getValueIterator(name.c_str()).getParameterValue()->getValue(0, true), "1");
                }
            });
        }
    }
}

} // namespace
