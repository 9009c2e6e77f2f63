#include "schema/ItemIndex.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>

using namespace kivo::configuration;

namespace {

TEST(ItemIndex, AnswersAsAScanThroughAdditionsAndRemovals) {
    std::mt19937 random(7);
    auto const randomKey = [&] { return (random() % 2 ? "Key" : "kEY") + std::to_string(random() % 60); };
    std::vector<std::string> items; // an item is its own key, and is never moved
    items.reserve(4001);
    std::vector<std::string const*> list;
    ItemIndex<std::string const> index;
    int rebuilds = 0;
    EXPECT_EQ(index.first("key1"), nullptr);
    EXPECT_FALSE(index.remove("key1", &items.emplace_back("key1")));
    for (int step = 0; step < 4000; ++step) {
        if (random() % 5 < 3 || list.empty()) {
            list.push_back(&items.emplace_back(randomKey()));
            index.add(*list.back(), list.back());
        } else {
            auto const position = list.begin() + static_cast<std::ptrdiff_t>(random() % list.size());
            auto const* removed = *position;
            list.erase(position);
            if (!index.remove(*removed, removed)) {
                ++rebuilds;
                index = {};
                std::ranges::for_each(list, [&](auto const* item) { index.add(*item, item); });
            }
        }
        auto const key = randomKey();
        std::vector<std::string const*> expected;
        std::ranges::copy_if(list, std::back_inserter(expected),
                             [&](auto const* item) { return equalIgnoringCase(*item, key); });
        std::vector<std::string const*> found;
        index.forEach(key, [&](auto const* item) {
            found.push_back(item);
            return true;
        });
        ASSERT_EQ(found, expected) << "step " << step;
        ASSERT_EQ(index.first(key), expected.empty() ? nullptr : expected.front()) << "step " << step;
    }
    EXPECT_GT(rebuilds, 0);
}

} // namespace
