#include "providers/ParameterSearchVisitor.h"
#include "schema/NameComparison.h"
#include "schema/ParameterItemFinder.h"
#include "schema/SubtreeIndex.h"
#include "support/Notation.h"
#include "visitors/ConstraintFinderVisitor.h"

#include <cctype>
#include <gtest/gtest.h>
#include <random>
#include <thread>

using namespace kivo::configuration;
using namespace kivo::test;
using namespace std::string_view_literals;

namespace {

int signOf(int number) { return (number > 0) - (number < 0); }

void compare(std::string_view a, std::string_view b, int sign) {
    ASSERT_EQ(signOf(compareIgnoringCase(a, b)), sign) << a << " / " << b;
    ASSERT_EQ(equalIgnoringCase(a, b), sign == 0) << a << " / " << b;
    ASSERT_EQ(hashIgnoringCase(a) == hashIgnoringCase(b), sign == 0) << a << " / " << b;
}

TEST(NameComparison, FoldsAToZOnly) {
    compare("", "", 0);
    compare("", "a", -1);
    compare("por", "PORT", -1);
    compare("Zebra", "ant", 1);
    compare("a_", "aB", -1); // '_' stands before the small letters, and capital letters count as small
    compare("a\xFF", "az", 1);
    compare("a\0b"sv, "a\0C"sv, -1);
    compare("a"sv, "a\0"sv, -1);
    // Every pair of bytes, in names of all sizes that are compared and hashed in different ways.
    for (int pair = 0; pair < 256 * 256; ++pair) {
        int const a = pair / 256;
        int const b = pair % 256;
        auto const size = 1 + static_cast<unsigned>(a * 31 + b) % 20;
        auto const changed = static_cast<unsigned>(a + b / 20) % size;
        std::string first(size, 'm');
        std::string second(size, 'M');
        first[changed] = static_cast<char>(a);
        second[changed] = static_cast<char>(b);
        ASSERT_NO_FATAL_FAILURE(compare(first, second, signOf(std::tolower(a) - std::tolower(b))));
    }
}

template <class Visitor>
Visitor walked(ParameterGroup const& group, std::string const& text) {
    Visitor visitor(text.c_str());
    group.accept(visitor);
    return visitor;
}

// Among the groups and parameters, every id and name is there several times, in differing letter case.
TEST(SubtreeIndex, AnswersAsWalksThroughAllChanges) {
    std::mt19937 random(11);
    auto const randomText = [&] { return (random() % 2 ? "Key" : "kEY") + std::to_string(random() % 42); };
    Items items;
    std::vector<ParameterItem*> parameters;
    for (unsigned i = 0; i < 90; ++i) {
        parameters.push_back(items.parameter(randomText() + "/" + randomText() + (i % 7 == 0 ? "~" : "")));
    }
    std::vector<ParameterGroup*> groups;
    for (unsigned i = 0; i < 5; ++i) {
        groups.push_back(items.group(randomText() + "{}"));
    }
    int indexed = 0;
    for (int step = 0; step < 3000 && !HasFailure(); ++step) {
        auto const position = random() % groups.size();
        auto& changed = *groups[position];
        auto* below = groups[position + random() % (groups.size() - position)]; // no group contains itself
        auto const text = randomText();
        SCOPED_TRACE(text + " in step " + std::to_string(step));
        if (below != &changed && !changed.getItem(below->getId(), false)) {
            changed.addItem(below);
        } else if (changed.getNumberOfItems() < 40 && random() % 5 < 3) {
            changed.addItem(parameters[random() % parameters.size()]);
        } else {
            changed.removeItem(text.c_str());
        }
        auto const& group = *groups[random() % groups.size()];
        auto const* const first = walked<ParameterItemFinder>(group, text).getFound();
        for (auto questions = random() % 5; questions > 0; --questions) { // the first ones are answered by walks
            EXPECT_EQ(group.getItem(text.c_str(), true), first);
        }
        if (auto const index = SubtreeIndex::of(group)) {
            ++indexed;
            EXPECT_EQ(index->firstById(text), first);
            EXPECT_EQ(index->pathToParameter(text), walked<ConstraintFinderVisitor>(group, text).getGroupPath());
            auto const search = walked<ParameterSearchVisitor>(group, text);
            auto const found = index->visibleParametersBeginning(text);
            ASSERT_EQ(found.size(), search.getNumberOfFoundItems());
            for (unsigned long i = 0; i < found.size(); ++i) {
                EXPECT_EQ(found[i], search.getFoundItem(i));
            }
        }
    }
    EXPECT_GT(indexed, 500);

    auto* root = groups.front();
    root->addItem(items.parameter("last")); // no index is made yet: the threads meet there
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int question = 0; question < 5; ++question) {
                EXPECT_EQ(root->getItem("LAST", true), root->getItem("last", false));
            }
            if (auto const index = SubtreeIndex::of(*root)) {
                EXPECT_EQ(index->visibleParametersBeginning("LA").size(), 1u);
            }
        });
    }
}

} // namespace
