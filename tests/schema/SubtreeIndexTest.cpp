#include "schema/SubtreeIndex.h"

#include <configuration/ParameterVisitor.h>

#include "schema/NameComparison.h"
#include "schema/ParameterItemFinder.h"
#include "support/Schema.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <thread>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

/// The answers of a plain walk.
class Walk : public ParameterVisitor {
public:
    Walk(ParameterGroup const& group, std::string const& text) : mText(text) { group.accept(*this); }

    bool visitGroupStart(ParameterGroup const& group) override {
        meet(group);
        mOpen.push_back(&group);
        return true;
    }
    void visitGroupEnd(ParameterGroup const&) override { mOpen.pop_back(); }
    bool visitParameter(Parameter const& parameter) override {
        meet(parameter);
        if (!parameter.isHidden() && beginsIgnoringCase(parameter.getName(), mText)) {
            visibleBeginning.push_back(&parameter);
        }
        if (pathToName.empty() && parameter.getName() == mText) {
            pathToName = mOpen;
        }
        return true;
    }

    unsigned long count = 0;
    ParameterItem const* first = nullptr; // of the id
    std::vector<Parameter const*> visibleBeginning;
    std::vector<ParameterGroup const*> pathToName;

private:
    void meet(ParameterItem const& item) {
        ++count;
        if (!first && equalIgnoringCase(item.getId(), mText)) {
            first = &item;
        }
    }

    std::string mText;
    std::vector<ParameterGroup const*> mOpen;
};

/// Groups and parameters among which every id and name is there several times, in differing letter case.
class SubtreeIndexTest : public testing::Test {
protected:
    static constexpr unsigned GROUPS = 5;

    std::mt19937 random{11};
    Items items;
    std::vector<ParameterGroup*> groups;
    std::vector<Parameter*> parameters;

    SubtreeIndexTest() {
        for (unsigned i = 0; i < GROUPS; ++i) {
            groups.push_back(items.group({.id = randomText().c_str()}));
        }
        for (unsigned i = 0; i < 90; ++i) {
            auto const id = randomText();
            auto const name = randomText();
            parameters.push_back(items.parameter({.id = id.c_str(), .name = name.c_str(), .hidden = i % 7 == 0}));
        }
    }

    std::string randomText() { return (random() % 2 ? "Key" : "kEY") + std::to_string(random() % 42); }

    static ParameterItem* firstDirect(ParameterGroup const& group, std::string const& id) {
        for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
            if (equalIgnoringCase(group.getItem(i)->getId(), id)) {
                return group.getItem(i);
            }
        }
        return nullptr;
    }

    /// Adds or removes an item of a random group. A group takes only groups behind it, so that none contains itself.
    void changeSomething() {
        auto const position = random() % GROUPS;
        auto& group = *groups[position];
        auto const count = group.getNumberOfItems();
        auto const kind = random() % 10;
        if (kind == 0 && position + 1 < GROUPS && Walk(group, "").count < 200) {
            group.addItem(groups[position + 1 + random() % (GROUPS - position - 1)]);
        } else if (kind < 6 && count < 40) {
            group.addItem(parameters[random() % parameters.size()]);
        } else if (count > 0) {
            auto const id = randomText();
            auto* const expected = firstDirect(group, id);
            EXPECT_EQ(group.removeItem(id.c_str()), expected);
        }
    }
};

TEST_F(SubtreeIndexTest, AnswersAsWalksThroughAllChanges) {
    unsigned long largest = 0;
    int indexed = 0;
    for (int step = 0; step < 3000; ++step) {
        changeSomething();
        auto const& group = *groups[random() % GROUPS];
        auto const text = randomText();
        SCOPED_TRACE(text + " in step " + std::to_string(step));
        Walk const walk(group, text);
        largest = std::max(largest, walk.count);
        ParameterItemFinder finder(text);
        group.accept(finder);
        EXPECT_EQ(finder.getFound(), walk.first);
        EXPECT_EQ(group.getItem(text.c_str(), false), firstDirect(group, text));
        for (auto questions = random() % 5; questions > 0; --questions) { // the first ones are answered by walks
            EXPECT_EQ(group.getItem(text.c_str(), true), walk.first);
        }
        if (auto const index = SubtreeIndex::of(group)) {
            ++indexed;
            EXPECT_EQ(index->firstById(text), walk.first);
            EXPECT_EQ(index->visibleParametersBeginning(text), walk.visibleBeginning);
            EXPECT_EQ(index->pathToParameter(text), walk.pathToName);
        }
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(largest, 400u); // groups were shared
    EXPECT_GT(indexed, 500);
}

TEST_F(SubtreeIndexTest, ChangesFarBelowReachTheIndex) {
    auto* low = items.group({.id = "low"});
    auto* root = items.group({.id = "root"}, {items.group({.id = "middle"}, {low})});
    for (auto* parameter : parameters) {
        root->addItem(parameter);
    }
    for (int question = 0; !SubtreeIndex::of(*root); ++question) {
        ASSERT_LT(question, 10);
    }
    auto* added = items.parameter({.id = "added"});
    EXPECT_EQ(root->getItem("added", true), nullptr);
    low->addItem(added);
    EXPECT_EQ(root->getItem("added", true), added);
}

TEST_F(SubtreeIndexTest, ConcurrentLookupsBuildOneIndex) {
    auto& root = *groups.front();
    for (auto* parameter : parameters) {
        root.addItem(parameter);
    }
    auto const* id = parameters.back()->getId();
    auto const* expected = firstDirect(root, id);
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int question = 0; question < 5; ++question) {
                EXPECT_EQ(root.getItem(id, false), expected);
                EXPECT_EQ(root.getItem(id, true), expected);
            }
            if (auto const index = SubtreeIndex::of(root)) {
                EXPECT_FALSE(index->visibleParametersBeginning("key").empty());
            }
        });
    }
    threads.clear();
    EXPECT_NE(SubtreeIndex::of(root), nullptr);
}

} // namespace
