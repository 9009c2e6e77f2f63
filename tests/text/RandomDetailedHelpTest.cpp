// Detailed help fits into any width, and says what it must and nothing that it must not.

#include "support/ManagerTest.h"
#include "support/Seeds.h"
#include "text/ColumnText.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroup.h>
#include <configuration/Specification.h>

#include <algorithm>
#include <random>
#include <set>
#include <sstream>

namespace kivo::test {

using namespace configuration;

namespace {

/// Lines are broken anywhere in long words, so texts are looked for without the blanks.
std::string withoutBlanks(std::string text) {
    std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
    return text;
}

class RandomHelp {
public:
    explicit RandomHelp(unsigned long seed) : mRandom(seed) {
        manager().reset();
        mIsGnu = oneIn(2);
        auto* const root = ParameterGroup::CreateContainer("tool", "tool", "d", true, oneIn(6));
        fill(*root, 0, "", true, false);
        manager().registerSpecification(std::make_unique<Specification>("tool", "d").release());
    }

    void check() {
        auto const width = 1 + below(oneIn(2) ? 30 : 120);
        manager().setCommandLineStyle(mIsGnu ? GNU_COMMAND_LINE : PLAIN_COMMAND_LINE);
        std::string const help = manager().composeDetailedHelp("tool", width);
        SCOPED_TRACE("width " + std::to_string(width) + '\n' + help);
        std::set<std::string> missing = mNames;
        std::istringstream lines(help);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_FALSE(line.ends_with(' ')) << line;
            auto const text = line.substr(std::min(line.find_first_not_of(' '), line.size()));
            bool const isName = mNames.contains(text);
            EXPECT_TRUE(isName || columnsOf(line) <= std::max(width, 2UL)) << line; // some characters have two columns
            auto const gap = text.find("  ");
            missing.erase(text.substr(0, gap));
        }
        EXPECT_EQ(missing, std::set<std::string>());
        auto const all = withoutBlanks(help);
        for (auto const& text : mShown) {
            EXPECT_NE(all.find(withoutBlanks(text)), all.npos) << text;
        }
        for (auto const& text : mKept) {
            EXPECT_EQ(all.find(text), all.npos) << text;
        }
    }

private:
    static Manager& manager() { return *Manager::getInstance(); }
    bool oneIn(unsigned n) { return mRandom() % n == 0; }
    unsigned long below(unsigned long n) { return mRandom() % n; }

    /// A text of some words that nothing else contains.
    std::string makeText(std::string const& beginning) {
        auto text = beginning + std::to_string(++mCount) + '_';
        char const* const pieces[] = {" ", "and", "a-longer-word-that-is-to-be-broken", "gr\u00f6\u00dfe",
                                      "\u6f22\u5b57"};
        for (auto n = below(12); n > 0; --n) {
            text += pieces[below(std::size(pieces))];
        }
        return text + '.';
    }

    /// @param path        the sections around the group, each with a dot after it
    /// @param isReachable whether flags in GNU style can give what is in it
    /// @param isChoice    whether the group is an exclusive one or in one, where defaults are not always used
    void fill(ParameterGroup& group, int depth, std::string const& path, bool isReachable, bool isChoice) {
        for (auto n = 1 + below(4); n > 0; --n) {
            auto const id = makeId();
            if (depth > 3 || !oneIn(3)) {
                group.addItem(makeSetting(id, path, isReachable, isChoice));
                continue;
            }
            auto const kind = below(3);
            bool const isConstraint = group.getGroupType() == ParameterGroup::CONSTRAINT;
            auto const text = makeText("group");
            auto* const inner =
                kind == 0   ? ParameterGroup::CreateGroup(id.c_str(), id.c_str(), text.c_str())
                : kind == 1 ? ParameterGroup::CreateMutuallyExclusive(id.c_str(), id.c_str(), text.c_str(), true)
                            : ParameterGroup::CreateContainer(id.c_str(), id.c_str(), text.c_str(), oneIn(2), oneIn(3));
            bool const isSection = kind == 2;
            fill(*inner, depth + 1, isSection ? path + id + '.' : path,
                 isReachable && !(isSection && (isConstraint || inner->isUnbounded())),
                 kind == 1 || (!isSection && isChoice));
            group.addItem(inner);
        }
    }
    std::string makeId() {
        auto const number = std::to_string(++mCount);
        return (oneIn(4) ? "a-name-that-is-as-wide-as-some-terminals" : oneIn(3) ? "middling" : "s") + number;
    }

    Parameter* makeSetting(std::string const& id, std::string const& path, bool isReachable, bool isChoice) {
        auto const name = oneIn(3) ? "n" + id : id;
        auto const text = makeText("text");
        auto const standard = "default" + std::to_string(++mCount) + '_';
        bool const isHidden = oneIn(6), isSecret = oneIn(4), hasLabels = oneIn(4), isOptional = !oneIn(5);
        auto* const parameter = Parameter::Create(id.c_str(), name.c_str(), text.c_str(), isOptional, oneIn(4),
                                                  hasLabels ? Parameter::ENUM_PARAMETER : Parameter::STRING_PARAMETER,
                                                  standard.c_str(), nullptr, nullptr, isHidden);
        parameter->setSensitive(isSecret);
        (isHidden ? mKept : mShown).insert(isHidden ? text.substr(0, text.find('_') + 1) : text);
        if (hasLabels) {
            auto* const labels = std::make_unique<ParameterEnumDefinition>(("labels" + id).c_str()).release();
            manager().registerEnumDefinition(labels);
            parameter->setEnumDefinition(labels);
            std::string list;
            for (auto n = 1 + below(9); n > 0; --n) {
                auto const label = "label" + std::to_string(++mCount) + '_';
                labels->addEnumValue(label.c_str(), static_cast<int>(n));
                list += (list.empty() ? "" : ", ") + label;
            }
            (isHidden ? mKept : mShown).insert(isHidden ? list.substr(0, list.find(',')) : "[one of: " + list + ']');
        }
        if (isSecret || isHidden || !isOptional) {
            mKept.insert(standard);
        } else if (!isChoice) {
            mShown.insert("[default: " + standard + ']');
        }
        if (!isHidden) {
            bool const isFlag = mIsGnu ? isReachable : path.empty();
            mNames.insert((!isFlag  ? ""
                           : mIsGnu ? "--"
                                    : "-") +
                          path + (isFlag ? name : id) + (hasLabels ? " label" : " string"));
        }
        return parameter;
    }

    std::mt19937_64 mRandom;
    bool mIsGnu;
    unsigned long mCount = 0;
    std::set<std::string> mNames; ///< of settings, as lines begin with them
    std::set<std::string> mShown;
    std::set<std::string> mKept; ///< texts that must not be shown
};

using RandomDetailedHelpTest = ManagerTest;

TEST_F(RandomDetailedHelpTest, FitsAndSaysAll) {
    forEachSeed(800, [](unsigned long seed) { RandomHelp(seed).check(); });
}

} // namespace

} // namespace kivo::test
