#include "visitors/SchemaIndex.h"
#include "providers/FlagMatches.h"
#include "providers/ParameterSearchVisitor.h"
#include "schema/ParameterItemFinder.h"
#include "support/Notation.h"
#include "visitors/ConstraintFinderVisitor.h"

#include <gtest/gtest.h>
#include <random>

using namespace kivo::configuration;
using namespace kivo::test;

namespace {

template <class Visitor>
Visitor walked(ParameterGroup const& group, std::string const& text) {
    Visitor visitor(text.c_str());
    group.accept(visitor);
    return visitor;
}

/// A group that shows walks one of its items only.
class OwnGroup final : public ParameterGroup {
public:
    OwnGroup(char const* id, ParameterItem* shown)
        : ParameterGroup(id, id, "Description", true, ITEMS_NOT_EXCLUSIVE, false, CONTAINER), mShown(shown) {
        addItem(shown);
    }
    bool accept(ParameterVisitor& visitor) const override {
        if (visitor.visitGroupStart(*this)) {
            mShown->accept(visitor);
            visitor.visitGroupEnd(*this);
        }
        return true;
    }

private:
    ParameterItem* mShown;
};

// Among the groups and parameters, every id and name is there several times, in differing letter case.
TEST(SchemaIndex, AnswersAsWalksDo) {
    std::mt19937 random(11);
    auto const randomText = [&] { return (random() % 2 ? "Key" : "kEY") + std::to_string(random() % 42); };
    unsigned long found = 0;
    for (int schema = 0; schema < 60 && !HasFailure(); ++schema) {
        Items items;
        std::vector<std::unique_ptr<OwnGroup>> own;
        std::vector<ParameterGroup const*> groups;
        for (int i = 0; i < 8; ++i) {
            auto* group = items.group(randomText() + "{}");
            for (auto count = random() % 12; count > 0; --count) {
                ParameterItem* item =
                    items.parameter(randomText() + "/" + randomText() + (random() % 7 == 0 ? "~" : ""));
                if (random() % 3 == 0 && !groups.empty()) {
                    item = const_cast<ParameterGroup*>(groups[random() % groups.size()]);
                }
                if (random() % 12 == 0) {
                    item = own.emplace_back(std::make_unique<OwnGroup>(randomText().c_str(), item)).get();
                }
                group->addItem(item);
            }
            groups.push_back(group);
        }
        SchemaIndex index(*groups.back());
        for (auto const& group : own) {
            groups.push_back(group.get());
        }
        ParameterValueGroup flags("flags");
        for (int question = 0; question < 60; ++question) {
            auto const text = randomText();
            auto const& group = *groups[random() % groups.size()];
            auto const* const first = walked<ParameterItemFinder>(group, text).getFound();
            EXPECT_EQ(group.getItem(text.c_str(), true), first);
            EXPECT_EQ(index.findById(group, text.c_str()), first);
            auto const path = walked<ConstraintFinderVisitor>(group, text).getGroupPath();
            EXPECT_EQ(index.findPathTo(group, text.c_str()), path);
            found += (first ? 1 : 0) + path.size();
            flags.addItem(std::make_unique<ParameterValue>(text.substr(0, random() % 6).c_str(), "1").release());
        }
        FlagMatches matches(flags);
        groups.front()->accept(matches);
        for (unsigned long i = 0; i < flags.getNumberOfItems(); ++i) {
            auto const flag = idOf(*flags.getItem(i));
            auto const search = walked<ParameterSearchVisitor>(*groups.front(), flag);
            auto const count = flag.empty() ? 0 : search.getNumberOfFoundItems(); // matching reports values without id
            EXPECT_EQ(matches[flag].count, count) << flag;
            EXPECT_EQ(matches[flag].first, count > 0 ? search.getFoundItem(0) : nullptr) << flag;
        }
    }
    EXPECT_GT(found, 1000ul);
}

} // namespace
