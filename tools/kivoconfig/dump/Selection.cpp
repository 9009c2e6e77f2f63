#include "dump/Selection.h"

#include "Complaints.h"
#include "settings/SettingTexts.h"
#include "settings/TypeTable.h"
#include "text/CodePage.h"
#include "text/Xml.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterValidator.h>

#include <algorithm>
#include <memory>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

// What a document may hold, whoever reads it: docs/registry-files.md.
constexpr std::size_t MAX_NAMES = 20000;
constexpr std::size_t MAX_ATTRIBUTES = 10000;
constexpr std::size_t MANY_ATTRIBUTES = 1000;

char const* const NO_NAME = "its id is no XML name";
char const* const TOO_MANY_NAMES = "there are too many different names for a values file";

std::size_t squareOfMany(std::size_t attributes) { return attributes > MANY_ATTRIBUTES ? attributes * attributes : 0; }

/// Whether a default passes as a given text. One that is not empty was checked when it was declared, but for labels.
bool passesAsGiven(ParameterValue const& standard) {
    auto const& parameter = *standard.getParameter();
    char const* const text = standard.getValue(0, false);
    auto const labels = labelsOf(parameter);
    bool const isLabel = labels.empty() || (text && std::ranges::find(labels, toUtf8(text)) != labels.end());
    if (!text || *text != '\0' || !isLabel) {
        return text && isLabel;
    }
    auto const* const validator = parameter.getValidator();
    bool const hasBounds = parameter.getMinimum() || parameter.getMaximum();
    return rowOf(parameter.getValueType()).takesEmpty && !hasBounds &&
           (!validator || !std::unique_ptr<char[]>(validator->validate(standard)));
}

/// Why a values file cannot hold a text; empty when it can.
std::string findObstacle(char const* text) {
    if (!text) {
        return "it has no text";
    }
    auto const utf8 = toUtf8(text);
    if (toLocal(utf8) != text) {
        return "its text has bytes that are no characters";
    }
    return isXmlText(utf8) ? "" : "its text has control characters, which XML cannot carry";
}

} // namespace

void Selection::select(DumpedSection& specification) {
    takeName(toUtf8(specification.group->getId()));
    selectIn(specification, Demands(specification, mChoices.isCommandLineOpen), false);
    specification.use = Use::VALUE;
}

void Selection::leaveOut(std::string const& name, std::string const& reason) {
    complain(name + " is left out: " + reason);
    mHasLeftOut = true;
}

void Selection::selectIn(DumpedSection& section, Demands const& demands, bool isInside) {
    section.use = section.isGiven ? Use::VALUE : Use::LEFT_OUT;
    mAttributes = 0;
    for (auto& setting : section.settings) {
        setting.use = useOf(setting, demands, isInside);
        auto const obstacle = setting.use == Use::LEFT_OUT ? std::string() : findObstacle(setting);
        if (!obstacle.empty()) {
            if (setting.use == Use::VALUE) {
                leaveOut(section.prefix + setting.getParameter().getId(), obstacle);
            }
            setting.use = Use::LEFT_OUT;
        }
        section.use = std::max(section.use, setting.use);
    }
    mSquares += squareOfMany(mAttributes);
    for (auto& inner : section.sections) {
        selectInside(inner, demands);
        section.use = std::max(section.use, inner.use);
    }
}

void Selection::selectInside(DumpedSection& section, Demands const& around) {
    auto const id = toUtf8(section.group->getId());
    auto const name = section.prefix.substr(0, section.prefix.size() - 1);
    if (mChoices.isForFile && !isXmlName(id)) {
        if (section.isGiven || mChoices.takesDefaults) {
            leaveOut(name, NO_NAME);
        }
        return;
    }
    selectIn(section, Demands(section, around), true);
    if (mChoices.isForFile && section.use == Use::VALUE && !takeName(id)) {
        leaveOut(name, TOO_MANY_NAMES);
        section.use = Use::LEFT_OUT;
    }
}

/// Nobody has to know the defaults of hidden settings, and those about help do not belong into files.
Use Selection::useOf(DumpedSetting const& setting, Demands const& demands, bool isInside) const {
    if (!setting.value->isUsingDefaultValue()) {
        return Use::VALUE;
    }
    auto const& parameter = setting.getParameter();
    if (parameter.isHidden() || (!isInside && isAboutHelp(parameter))) {
        return Use::LEFT_OUT;
    }
    bool const isValue = mChoices.takesDefaults && !demands.forbid(setting) && passesAsGiven(*setting.value);
    return isValue ? Use::VALUE : Use::COMMENT;
}

/// Why a setting cannot be shown; empty when it can.
std::string Selection::findObstacle(DumpedSetting const& setting) {
    auto const& value = *setting.value;
    if (setting.getParameter().isSensitive() && !mChoices.showsSecrets) {
        return "it is secret; --secrets shows it";
    }
    if (!mChoices.isForFile) {
        return "";
    }
    auto const id = toUtf8(setting.getParameter().getId());
    if (!isXmlName(id)) {
        return NO_NAME;
    }
    if (!setting.isDirect && value.getNumberOfValues() > 1) {
        return setting.isMisplaced ? "it has several texts outside its section, where a values file can give one"
                                   : "it has several texts in a constraint, where a values file can give one";
    }
    for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
        if (auto const obstacle = kivoconfig::findObstacle(value.getValue(i, false)); !obstacle.empty()) {
            return obstacle;
        }
    }
    if (setting.use == Use::COMMENT) {
        return "";
    }
    if (!takeName(id)) {
        return TOO_MANY_NAMES;
    }
    return setting.isDirect || takeAttribute() ? "" : "there are too many attributes for a values file";
}

bool Selection::takeName(std::string const& name) {
    bool const isTaken = mNames.size() < MAX_NAMES || mNames.contains(name);
    if (isTaken) {
        mNames.insert(name);
    }
    return isTaken;
}

bool Selection::takeAttribute() {
    bool const isTaken = mSquares + squareOfMany(mAttributes + 1) <= MAX_ATTRIBUTES * MAX_ATTRIBUTES;
    mAttributes += isTaken ? 1 : 0;
    return isTaken;
}

} // namespace kivoconfig
