// Former names do what the current ones do, in every source.

#include "support/ManagerTest.h"
#include "support/Notation.h"
#include "support/Seeds.h"

#include <configuration/Flags.h>
#include <configuration/ValueGroup.h>

#include <algorithm>
#include <cctype>
#include <list>
#include <map>
#include <random>
#include <regex>

namespace kivo::test {

using namespace configuration;

namespace {

/// Sources in which "@<id>@" stands for the name of a setting.
struct Sources {
    std::string applicationFile;
    std::string machineConfig;
    std::vector<std::string> arguments;
    std::vector<std::string> variables; ///< with an equals sign before their texts
};

class RandomFormerNames {
public:
    RandomFormerNames(unsigned long seed, TemporaryInstallation& installation)
        : mRandom(seed), mInstallation(installation) {
        manager().reset();
        mSchema = "tool{" + makeItems(0, false) + "}";
        mRoot = createTool(mSchema)->getParameterGroup();
        mStyle = oneIn(2) ? GNU_COMMAND_LINE : PLAIN_COMMAND_LINE;
        mFlags = static_cast<int>(mRandom() % (1 + (RESOLVE_FLAG_NAMES | STRICT_RECOGNITION)));
    }

    void check() {
        Sources sources{makeElement(*mRoot), makeElement(*mRoot), {"program"}, {}};
        makeFlat(*mRoot, "", sources);
        SCOPED_TRACE(mSchema);
        auto const expected = request(sources, [](std::string const& id) { return id; });
        auto const given = request(sources, [this](std::string const& id) {
            auto const* const former = static_cast<Parameter*>(manager().getParameterItem(id.c_str()))->getFormerName();
            return former && oneIn(2) ? former : id;
        });
        EXPECT_EQ(given, expected);
    }

private:
    static Manager& manager() { return *Manager::getInstance(); }
    bool oneIn(unsigned n) { return mRandom() % n == 0; }

    /// No source can give what a section in a constraint has.
    std::string makeItems(int depth, bool isConstraint) {
        std::string items;
        for (auto n = 1 + mRandom() % 4; n > 0; --n) {
            auto const number = std::to_string(++mCount) + "x"; // none begins like another
            items += items.empty() ? "" : " ";
            if (auto const kind = depth > 2 ? 9 : (isConstraint ? 2 : 0) + mRandom() % 10; kind < 4) {
                char const* const beginnings[] = {"?{", "*{", "(", "?["};
                char const ends[] = "}})]";
                items += "g" + number + beginnings[kind] + makeItems(depth + 1, kind > 1) + ends[kind];
                continue;
            }
            bool const isUnbounded = oneIn(3);
            auto const* const type = oneIn(2) ? "" : oneIn(2) ? ":int" : ":bool";
            items += "s" + number + type + (oneIn(6) ? "" : "?") + (isUnbounded ? "*" : "") +
                     (oneIn(4) ? "" : "^s" + number + "Old") + (isUnbounded ? "" : "=1");
        }
        return items;
    }

    std::string text() { return oneIn(50) ? "x" : std::to_string(mRandom() % 2); }
    static std::string nameOf(ParameterItem const& item) { return '@' + std::string(item.getId()) + '@'; }

    std::string makeElement(ParameterGroup const& group) {
        std::string attributes, elements;
        fill(group, attributes, elements);
        return '<' + std::string(group.getId()) + attributes + '>' + elements + "</" + group.getId() + ">\n";
    }
    void fill(ParameterGroup const& group, std::string& attributes, std::string& elements) {
        for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
            auto const& item = *group.getItem(i);
            auto const* const inner = dynamic_cast<ParameterGroup const*>(&item);
            if (inner && inner->getGroupType() == ParameterGroup::CONSTRAINT) {
                fill(*inner, attributes, elements);
            } else if (inner) {
                for (auto n = mRandom() % (inner->isUnbounded() ? 3 : 2); n > 0; --n) {
                    elements += makeElement(*inner);
                }
            } else if (oneIn(3)) {
                attributes += ' ' + nameOf(item) + "=\"" + text() + '"';
            } else if (group.getGroupType() == ParameterGroup::CONTAINER && oneIn(3)) {
                for (auto n = 1 + mRandom() % (item.isUnbounded() ? 3 : 1); n > 0; --n) {
                    elements += '<' + nameOf(item) + " value=\"" + text() + "\"/>";
                }
            }
        }
    }

    /// Makes flags and variables. @param path the sections around the group, each with a dot after it
    void makeFlat(ParameterGroup const& group, std::string const& path, Sources& sources) {
        for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
            auto const& item = *group.getItem(i);
            if (auto const* const inner = dynamic_cast<ParameterGroup const*>(&item)) {
                bool const isSection = inner->getGroupType() == ParameterGroup::CONTAINER;
                if (inner->isUnbounded() && !oneIn(10)) {
                    continue; // only files can give what is in it
                }
                makeFlat(*inner, isSection ? path + item.getId() + '.' : path, sources);
                continue;
            }
            bool const isSwitch = static_cast<Parameter const&>(item).getValueType() == Parameter::BOOLEAN_PARAMETER;
            if (oneIn(5)) {
                bool const isGnu = mStyle == GNU_COMMAND_LINE;
                sources.arguments.push_back((isGnu ? "--" + path : "-") + nameOf(item));
                if (!isSwitch && !oneIn(50)) {
                    sources.arguments.push_back(text());
                }
            }
            if (oneIn(4)) {
                auto const sections = std::regex_replace(path, std::regex("\\."), "__");
                sources.variables.push_back("TOOL_" + sections + nameOf(item) + '=' + text());
            }
        }
    }

    /// What a request gives or throws.
    template <class Choose>
    std::string request(Sources const& sources, Choose choose) {
        auto const named = [&](std::string text) {
            static std::regex const place("@(\\w+)@");
            std::map<std::string, std::string> names; // one for each setting: what has another is read later
            for (std::smatch found; std::regex_search(text, found, place);) {
                auto const id = found[1].str();
                auto const& name = names.try_emplace(id, choose(id)).first->second;
                text = found.prefix().str() + name + found.suffix().str();
            }
            return text;
        };
        auto const file = mInstallation.write("application.xml", named(sources.applicationFile));
        mInstallation.write("config/machine.config", named(sources.machineConfig));
        std::list<ScopedEnvironment> environment;
        for (auto const& variable : sources.variables) {
            auto text = named(variable);
            auto const end = text.find('=');
            std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end), text.begin(),
                           [](char each) { return static_cast<char>(std::toupper(each)); });
            environment.emplace_front(text.substr(0, end), text.substr(end + 1));
        }
        std::vector<std::string> arguments(sources.arguments.size());
        std::ranges::transform(sources.arguments, arguments.begin(), named);
        std::vector<char const*> argv(arguments.size());
        std::ranges::transform(arguments, argv.begin(), [](auto const& each) { return each.c_str(); });
        manager().setCommandLineStyle(mStyle);
        try {
            manager().enableConfiguration(true, file.c_str(), static_cast<unsigned>(argv.size()), argv.data());
            manager().enableEnvironment("TOOL");
            auto const values = manager().getValueGroup("tool", false, mFlags);
            return values.isNull() ? "nothing" : toText(*values.getCurrentValueGroup());
        } catch (std::exception const& thrown) {
            return std::regex_replace(thrown.what(), std::regex("xOld"), "x"); // faults name what was given
        }
    }

    std::mt19937_64 mRandom;
    TemporaryInstallation& mInstallation;
    unsigned long mCount = 0;
    std::string mSchema;
    ParameterGroup const* mRoot;
    CommandLineStyle mStyle;
    int mFlags;
};

using RandomFormerNamesTest = ManagerTest;

TEST_F(RandomFormerNamesTest, DoWhatCurrentOnesDo) {
    forEachSeed(600, [&](unsigned long seed) { RandomFormerNames(seed, installation).check(); });
}

} // namespace

} // namespace kivo::test
