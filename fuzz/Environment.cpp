// After the byte of choices, the first line of the input is a prefix. The others are the environment, which a tool's
// settings are read from; or, as the alternative, the ids of settings: these are refused, or each one has a variable of
// its own.

#include "Harness.h"
#include "ToolSpecification.h"
#include "providers/EnvironmentNames.h"
#include "providers/EnvironmentVariables.h"

#include <configuration/Inspection.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterErrors.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValueGroup.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <sstream>
#include <utility>
#include <vector>

#include <unistd.h>

namespace kivo::fuzz {

namespace {

using namespace configuration;

/// Lines as the environment of the process.
class Variables {
public:
    explicit Variables(std::istream& lines) {
        for (std::string line; std::getline(lines, line);) {
            mTexts.push_back(line);
        }
        std::ranges::transform(mTexts, std::back_inserter(mPointers), [](auto& text) { return text.data(); });
        mPointers.push_back(nullptr);
        std::swap(environ, mEnvironment);
    }
    ~Variables() { std::swap(environ, mEnvironment); }
    Variables(Variables const&) = delete;
    Variables& operator=(Variables const&) = delete;

private:
    std::vector<std::string> mTexts;
    std::vector<char*> mPointers;
    char** mEnvironment = mPointers.data();
};

void collect(ToolSpecification const& specifications, std::string const& prefix, std::istream& lines, int flags) {
    Manager& manager = specifications.manager;
    {
        Variables const variables(lines);
        manager.enableEnvironment(prefix.c_str());
    }
    collectAndRead(manager, specifications.tool, flags);
    collectAndRead(manager, specifications.part, flags);
    Inspection const inspection(specifications.tool, true, flags);
}

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Sections and settings that lines name: ">" begins a section, "<" ends one.
class Settings {
public:
    explicit Settings(std::istream& lines) : mOpen{&addGroup("root")} {
        for (std::string line; std::getline(lines, line);) {
            if (line == "<") {
                mOpen.resize(std::max<std::size_t>(mOpen.size() - 1, 1));
                mPath.resize(mOpen.size() - 1);
            } else {
                attempt([&] { add(line); });
            }
        }
    }

    ParameterGroup const& root() const { return *mOpen.front(); }
    std::vector<std::vector<char const*>> const& paths() const { return mPaths; }

private:
    ParameterGroup& addGroup(char const* id) {
        auto group = std::make_unique<ParameterGroup>(id, "n", "d", true, ParameterGroup::ITEMS_NOT_EXCLUSIVE, false,
                                                      ParameterGroup::CONTAINER);
        auto& added = *group;
        mItems.push_back(std::move(group));
        return added;
    }

    void add(std::string const& line) {
        if (mOpen.back()->getItem(line.c_str() + (line.starts_with('>') ? 1 : 0), false)) {
            return; // of two items with one id, only the first can be given
        }
        if (line.starts_with('>')) {
            auto& group = addGroup(line.substr(1).c_str());
            mOpen.back()->addItem(&group);
            mOpen.push_back(&group);
            mPath.push_back(group.getId());
            return;
        }
        mItems.push_back(std::make_unique<Parameter>(line.c_str(), "n", "d", true, false, Parameter::STRING_PARAMETER,
                                                     "", nullptr, nullptr, false));
        mOpen.back()->addItem(mItems.back().get());
        mPaths.push_back(mPath);
        mPaths.back().push_back(mItems.back()->getId());
    }

    std::vector<std::unique_ptr<ParameterItem>> mItems;
    std::vector<ParameterGroup*> mOpen; // the root first
    std::vector<char const*> mPath;
    std::vector<std::vector<char const*>> mPaths; // of the settings
};

/// Each variable is that of one setting, and gives that setting its text.
void checkNames(std::string const& prefix, std::istream& lines) {
    Settings const settings(lines);
    EnvironmentNames const names(settings.root(), readEnvironment(prefix, nullptr).prefix);
    for (auto const& path : settings.paths()) {
        auto const variable = names.find(path);
        ParameterErrors faults;
        auto const values = names.assign({{variable, "text"}}, faults);
        ParameterValueGroup const* group = values.get();
        for (std::size_t i = 0; i + 1 < path.size() && group; ++i) {
            group = static_cast<ParameterValueGroup const*>(group->getItem(path[i]));
        }
        require(names.isKnown(variable) && faults.getNumberOfErrors() == 0 && group && group->getValue(path.back()));
    }
}

} // namespace

} // namespace kivo::fuzz

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using namespace kivo::fuzz;
    static Environment const environment;
    static ToolSpecification const specifications(environment);
    MemoryWatch const watch;

    Input const input(data, size);
    std::istringstream lines(input.text);
    std::string prefix;
    std::getline(lines, prefix);
    if (input.isAlternative) {
        attempt([&] { checkNames(prefix, lines); });
        return 0;
    }
    attempt([&] { collect(specifications, prefix, lines, input.flags); });
    specifications.manager.enableConfiguration(false, nullptr, 0, nullptr); // destroys the provider
    return 0;
}
