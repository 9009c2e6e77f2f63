#include "kernel/kvProcessInit.h"

#include "providers/EnvironmentNames.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterErrors.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValueGroup.h>

#include "providers/EnvironmentVariables.h"
#include "schema/NameSuggestion.h"
#include "schema/Rule.h"
#include "schema/StoredOrigin.h"
#include "text/Utf8.h"

#include <map>

namespace kivo::configuration {

namespace {

constexpr char const* SECTION_END = "__";
constexpr std::size_t NO_SECTION = 0; // that is the root, which counts as one that does not repeat

char toVariableCharacter(char character) {
    if (character >= 'a' && character <= 'z') {
        return static_cast<char>(character - 'a' + 'A');
    }
    bool const isKept = (character >= 'A' && character <= 'Z') || (character >= '0' && character <= '9');
    return isKept ? character : '_';
}

/// An id as a part of a variable.
std::string toVariable(std::string_view id) {
    std::string variable;
    while (!id.empty()) {
        variable += toVariableCharacter(id.front());
        id.remove_prefix(sizeOfCharacter(id));
    }
    return variable;
}

} // namespace

EnvironmentNames::EnvironmentNames(ParameterGroup const& root, std::string_view prefix) {
    mSections.push_back({&root, 0, std::string(prefix) + "_"});
    root.accept(*this);
    addPositions();
}

bool EnvironmentNames::visitGroupStart(ParameterGroup const& group) {
    if (mOpenSections.empty()) {
        mOpenSections.push_back(0);
        return true;
    }
    if (group.getGroupType() == ParameterGroup::CONSTRAINT) {
        ++mOpenConstraints;
        return true;
    }
    auto const around = mOpenSections.back();
    // No source can give a section inside a constraint, and of two items with one id only the first is found.
    if (mOpenConstraints > 0 || !mSections[around].ids.insert(group.getId()).second) {
        return false;
    }
    auto const outermost = mSections[around].repeated;
    auto const repeated = outermost == NO_SECTION && group.isUnbounded() ? mSections.size() : outermost;
    mOpenSections.push_back(mSections.size());
    mSections.push_back(
        {&group, around, mSections[around].beginning + toVariable(group.getId()) + SECTION_END, repeated});
    return true;
}

void EnvironmentNames::visitGroupEnd(ParameterGroup const& group) {
    if (group.getGroupType() == ParameterGroup::CONSTRAINT && mOpenConstraints > 0) {
        --mOpenConstraints;
    } else {
        mOpenSections.pop_back();
    }
}

bool EnvironmentNames::visitParameter(Parameter const& parameter) {
    auto const section = mOpenSections.back();
    if (mSections[section].ids.insert(parameter.getId()).second) {
        addName(parameter, false);
        if (parameter.getFormerName()) {
            addName(parameter, true);
        }
    }
    return true;
}

void EnvironmentNames::addName(Parameter const& parameter, bool isFormer) {
    auto& name = mNames.emplace_back(Name{&parameter, mOpenSections.back(), isFormer, {}});
    name.variable = mSections[name.section].beginning + toVariable(idOf(name));
}

char const* EnvironmentNames::idOf(Name const& name) {
    return name.isFormer ? name.parameter->getFormerName() : name.parameter->getId();
}

void EnvironmentNames::addPositions() {
    for (std::size_t i = 0; i < mNames.size(); ++i) {
        auto const [known, isNew] = mPositions.emplace(mNames[i].variable, i);
        bool const isOfBoth = mNames[i].isFormer && known->second + 1 == i; // it changed in other characters only
        if (!isNew && !isOfBoth) {
            throw ConfigurationException(R"(Settings "%s" and "%s" have the same environment variable "%s")",
                                         fullNameOf(mNames[known->second]).c_str(), fullNameOf(mNames[i]).c_str(),
                                         mNames[i].variable.c_str());
        }
    }
}

std::string EnvironmentNames::pathOf(std::size_t section) const {
    std::string path;
    for (; section != 0; section = mSections[section].around) {
        path.insert(0, path.empty() ? "" : ".").insert(0, mSections[section].group->getId());
    }
    return path;
}

std::string EnvironmentNames::fullNameOf(Name const& name) const {
    auto const path = pathOf(name.section);
    return path + (path.empty() ? "" : ".") + idOf(name);
}

std::unique_ptr<ParameterValueGroup> EnvironmentNames::assign(std::vector<EnvironmentVariable> const& variables,
                                                              ParameterErrors& faults) const {
    std::map<std::size_t, EnvironmentVariable const*> given; // in the order of the settings
    for (auto const& variable : variables) {
        if (auto const found = mPositions.find(variable.name); found != mPositions.end()) {
            given.emplace(found->second, &variable);
        }
    }
    auto root = std::make_unique<ParameterValueGroup>(mSections.front().group->getId());
    std::map<std::size_t, ParameterValueGroup*> groups{{0, root.get()}};
    std::vector<std::size_t> missing;
    for (auto const& [position, variable] : given) {
        auto const& name = mNames[position];
        StoredOrigin const origin(Origin::ENVIRONMENT_SOURCE, variable->name);
        if (auto const repeated = mSections[name.section].repeated; repeated != NO_SECTION) {
            faults.addFault(Rule::MISPLACED_SETTING, origin,
                            R"("%s" cannot be given in the environment: "%s" may be repeated)",
                            fullNameOf(name).c_str(), pathOf(repeated).c_str());
            continue;
        }
        auto section = name.section;
        for (; !groups.contains(section); section = mSections[section].around) {
            missing.push_back(section);
        }
        for (; !missing.empty(); missing.pop_back()) {
            auto group = std::make_unique<ParameterValueGroup>(mSections[missing.back()].group->getId());
            group->setStoredOrigin(origin);
            auto* const added = group.get();
            groups[section]->addItem(group.release());
            section = missing.back();
            groups.emplace(section, added);
        }
        groups[section]->addValueAt(idOf(name), variable->text.c_str(), origin);
    }
    return root;
}

char const* EnvironmentNames::suggest(std::string_view variable) const {
    ClosestName closest(variable);
    for (auto const& name : mNames) {
        if (!name.isFormer && !name.parameter->isHidden() && mSections[name.section].repeated == NO_SECTION) {
            closest.offer(name.variable.c_str());
        }
    }
    return closest.get();
}

std::string EnvironmentNames::find(std::vector<char const*> const& ids) const {
    auto variable = mSections.front().beginning;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        variable.append(i > 0 ? SECTION_END : "").append(toVariable(ids[i]));
    }
    auto const found = mPositions.find(variable);
    bool const canBeGiven =
        found != mPositions.end() && mSections[mNames[found->second].section].repeated == NO_SECTION;
    return canBeGiven ? variable : std::string();
}

} // namespace kivo::configuration
