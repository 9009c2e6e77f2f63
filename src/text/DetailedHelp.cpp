#include "kernel/kvProcessInit.h"

#include "text/DetailedHelp.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>

#include "schema/ValueTypes.h"
#include "text/ColumnText.h"
#include "values/DefaultText.h"

#include <algorithm>

namespace kivo::configuration {

namespace {

constexpr char const* REPEATABLE = "repeatable";

/// Not even headings inside headings are indented deeper, so that text keeps its room.
constexpr std::size_t DEEPEST = 4;
constexpr std::size_t INDENT = 2;
/// A name whose end is further right stands in a line of its own.
constexpr std::size_t WIDEST_NAME = 24;
constexpr std::size_t GAP = 2;
/// Where the text beside the names would have less room, it stands below them.
constexpr std::size_t LEAST_TEXT = 24;
constexpr std::size_t INDENT_BELOW = 4;

std::string describe(ParameterItem const& item) {
    char const* const description = item.getDescription();
    return description ? toOneLine(description) : std::string();
}

std::string bracketed(std::string const& fact) { return "[" + fact + "]"; }

bool isWordCharacter(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           std::string_view("_-+.:/#*%").find(c) != std::string_view::npos;
}

/// A text of a value, in quotes unless it is a word.
std::string quotedUnlessWord(char const* text) {
    auto const shown = escapeControls(text);
    bool const isWord = !shown.empty() && std::ranges::all_of(shown, isWordCharacter);
    return isWord ? shown : '"' + shown + '"';
}

std::string listLabels(ParameterEnumDefinition const& labels) {
    std::string list;
    for (unsigned long i = 0; i < labels.getNumberOfSymbols(); ++i) {
        list.append(i > 0 ? ", " : "").append(quotedUnlessWord(labels.getSymbol(i)));
    }
    return list;
}

std::string describeBounds(char const* minimum, char const* maximum) {
    if (minimum && maximum) {
        return "from " + quotedUnlessWord(minimum) + " to " + quotedUnlessWord(maximum);
    }
    return minimum   ? "at least " + quotedUnlessWord(minimum)
           : maximum ? "at most " + quotedUnlessWord(maximum)
                     : std::string();
}

/// The default as users read it: a flag that is off, and an empty text, say nothing.
std::string describeDefault(Parameter const& parameter) {
    if (parameter.getValueType() == Parameter::BOOLEAN_PARAMETER) {
        return parameter.getDefaultValue()->getBooleanValue(0) ? "true" : "";
    }
    char const* const text = defaultTextOf(parameter);
    return *text == '\0' ? std::string() : quotedUnlessWord(text);
}

/// What stands for the value after a name; nothing for a flag. Only an optional bool can do without a value.
std::string placeholderOf(Parameter const& parameter) {
    if (parameter.getValueType() == Parameter::BOOLEAN_PARAMETER && parameter.isOptional()) {
        return {};
    }
    char const* const name = parameter.getValueName();
    if (name && *name != '\0') {
        return " " + toOneLine(name);
    }
    bool const hasLabels = parameter.getValueType() == Parameter::ENUM_PARAMETER;
    return std::string(" ") + (hasLabels ? "label" : traitsOf(parameter.getValueType()).word);
}

void appendLines(std::string& text, std::string_view paragraph, std::size_t indent, std::size_t width) {
    for (auto const& line : wrapWords(paragraph, width > indent ? width - indent : 1)) {
        text.append(indent, ' ').append(line).append("\n");
    }
}

/// Facts, as many in a line as there is room for; a line ends inside of one only where it does not fit by itself.
void appendFacts(std::string& text, std::vector<std::string> const& facts, std::size_t indent, std::size_t width) {
    auto const room = width > indent ? width - indent : 1;
    std::string line;
    for (auto const& fact : facts) {
        if (!line.empty() && columnsOf(line) + 1 + columnsOf(fact) > room) {
            appendLines(text, line, indent, width);
            line.clear();
        }
        line.append(line.empty() ? "" : " ").append(fact);
    }
    appendLines(text, line, indent, width);
}

/// A paragraph whose second line and all after it are indented.
void appendHanging(std::string& text, std::string_view paragraph, std::size_t indent, std::size_t width) {
    auto const further = std::min(INDENT, width / 8);
    auto const lines = wrapWords(paragraph, width > indent + further ? width - indent - further : 1);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        text.append(indent + (i > 0 ? further : 0), ' ').append(lines[i]).append("\n");
    }
}

} // namespace

bool DetailedHelp::visitGroupStart(ParameterGroup const& group) {
    if (mOpen.empty()) {
        mSections.push_back({"Settings:", {}, {}});
        mOpen.push_back({0, true, {}});
        return true;
    }
    if (group.getGroupType() == ParameterGroup::CONSTRAINT) {
        auto& constraints = mOpen.back().constraints;
        bool const isInChoice = std::ranges::any_of(constraints, [](auto const& each) { return each.hasHeading; });
        constraints.push_back({&group, 0, {}, group.itemsAreExclusive() || isInChoice, false});
        return true;
    }
    mIds.push_back(group.getId());
    auto heading = std::string("Section ");
    for (std::size_t i = 0; i < mIds.size(); ++i) {
        heading.append(i > 0 ? "." : "").append(toOneLine(mIds[i]));
    }
    auto const description = describe(group);
    heading.append(description.empty() ? "" : ": ").append(description);
    std::vector<std::string> facts;
    if (!group.isOptional()) {
        facts.push_back(bracketed("required"));
    }
    if (group.isUnbounded()) {
        facts.push_back(bracketed(REPEATABLE));
    }
    auto const& around = mOpen.back();
    bool const isReachable = around.isReachable && around.constraints.empty() && !group.isUnbounded();
    mOpen.push_back({mSections.size(), isReachable, {}});
    mSections.push_back({heading, std::move(facts), {}});
    return true;
}

void DetailedHelp::visitGroupMiddle(ParameterGroup const&) {
    if (auto& constraints = mOpen.back().constraints; !constraints.empty()) {
        ++constraints.back().position;
    }
}

void DetailedHelp::visitGroupEnd(ParameterGroup const& group) {
    if (group.getGroupType() == ParameterGroup::CONSTRAINT && !mOpen.back().constraints.empty()) {
        mOpen.back().constraints.pop_back();
        return;
    }
    mOpen.pop_back();
    if (!mIds.empty()) {
        mIds.pop_back();
    }
}

bool DetailedHelp::visitParameter(Parameter const& parameter) {
    auto facts = factsOf(parameter); // of hidden ones, too: a default may be taken by one
    if (!parameter.isHidden()) {
        writeHeadings();
        auto const& constraints = mOpen.back().constraints;
        auto const depth = std::ranges::count_if(constraints, [](auto const& each) { return each.hasHeading; });
        mSections[mOpen.back().position].entries.push_back(
            {static_cast<std::size_t>(depth), nameOf(parameter), describe(parameter), std::move(facts)});
    }
    return true;
}

/// Writes the headings of the open constraints that have none yet.
void DetailedHelp::writeHeadings() {
    std::size_t depth = 0;
    for (auto& constraint : mOpen.back().constraints) {
        if (constraint.hasHeading && !constraint.isHeadingWritten) {
            auto const description = describe(*constraint.group);
            bool const isChoice = constraint.group->itemsAreExclusive();
            auto const heading = description.empty() ? (isChoice ? "At most one of these:" : "These together:")
                                                     : description + (isChoice ? " (at most one):" : " (together):");
            mSections[mOpen.back().position].entries.push_back({depth, {}, heading, {}});
            constraint.isHeadingWritten = true;
        }
        depth += constraint.hasHeading ? 1 : 0;
    }
}

/// A flag as it is written; or the full name of a setting that no flag can give.
std::string DetailedHelp::nameOf(Parameter const& parameter) const {
    bool const isGnu = mStyle == GNU_COMMAND_LINE;
    bool const isFlag = isGnu ? mOpen.back().isReachable : mIds.empty();
    std::string name = isFlag ? (isGnu ? "--" : "-") : "";
    for (char const* id : mIds) {
        name.append(toOneLine(id)).append(".");
    }
    return name + toOneLine(isFlag ? parameter.getName() : parameter.getId()) + placeholderOf(parameter);
}

std::vector<std::string> DetailedHelp::factsOf(Parameter const& parameter) {
    std::vector<std::string> facts;
    if (char const* const advice = parameter.getDeprecation()) {
        facts.push_back(bracketed("deprecated: " + toOneLine(advice)));
    }
    if (!parameter.isOptional()) {
        facts.push_back(bracketed("required"));
    }
    if (parameter.isSensitive()) {
        facts.push_back(bracketed("secret"));
    }
    auto const* const labels = parameter.getEnumDefinition();
    if (labels && labels->getNumberOfSymbols() > 0) {
        facts.push_back(bracketed("one of: " + listLabels(*labels)));
    }
    if (auto const bounds = describeBounds(parameter.getMinimum(), parameter.getMaximum()); !bounds.empty()) {
        facts.push_back(bracketed(bounds));
    }
    if (bool const isTaken = takesDefault(parameter); isTaken && !parameter.isSensitive()) {
        if (auto const text = describeDefault(parameter); !text.empty()) {
            facts.push_back(bracketed("default: " + text));
        }
    }
    if (parameter.isUnbounded()) {
        facts.push_back(bracketed(REPEATABLE));
    }
    mIds.push_back(parameter.getId());
    auto const variable = mFindVariable(mIds);
    mIds.pop_back();
    if (!variable.empty()) {
        facts.push_back(bracketed("environment: " + variable));
    }
    return facts;
}

/// A required setting never uses its default, and in an optional choice none applies. In any other choice, it is the
/// first alternative with a default that gets it.
bool DetailedHelp::takesDefault(Parameter const& parameter) {
    bool applies = defaultTextOf(parameter) && parameter.isOptional();
    for (auto& constraint : mOpen.back().constraints) {
        if (applies && constraint.group->itemsAreExclusive()) {
            auto const first = constraint.defaultPosition.value_or(constraint.position);
            applies = !constraint.group->isOptional() && first == constraint.position;
            constraint.defaultPosition = first;
        }
    }
    return applies;
}

std::size_t DetailedHelp::indentOf(Entry const& entry) { return INDENT * (1 + std::min(entry.depth, DEEPEST)); }

/// The column after the names that do not stand in a line of their own; 0 when all do.
std::size_t DetailedHelp::findNameEnd() const {
    std::size_t nameEnd = 0;
    for (auto const& section : mSections) {
        for (auto const& entry : section.entries) {
            auto const end = indentOf(entry) + columnsOf(entry.name);
            nameEnd = entry.name.empty() || end > WIDEST_NAME ? nameEnd : std::max(nameEnd, end);
        }
    }
    return nameEnd;
}

std::string DetailedHelp::compose(std::size_t width) const {
    auto const nameEnd = findNameEnd();
    auto const textStart = nameEnd + GAP;
    bool const isBeside = nameEnd > 0 && width >= LEAST_TEXT && width - LEAST_TEXT >= textStart;
    std::string text;
    for (auto const& section : mSections) {
        if (section.entries.empty()) {
            continue;
        }
        text.append(text.empty() ? "" : "\n");
        appendHanging(text, section.heading, 0, width);
        appendFacts(text, section.facts, std::min(INDENT, width / 8), width);
        for (auto const& entry : section.entries) {
            appendEntry(text, entry, isBeside ? textStart : 0, width);
        }
    }
    return text;
}

/// Where there is little room, there is no room for indentation.
/// @param textStart the column of the text beside the name; 0: it stands below the name
void DetailedHelp::appendEntry(std::string& text, Entry const& entry, std::size_t textStart, std::size_t width) {
    auto const indent = textStart > 0 ? indentOf(entry) : std::min(indentOf(entry), width / 4);
    if (entry.name.empty()) {
        appendHanging(text, entry.text, indent, width);
        return;
    }
    auto const start = textStart > 0 ? textStart : indent + std::min(INDENT_BELOW, width / 8);
    std::string lines;
    appendLines(lines, entry.text, start, width);
    appendFacts(lines, entry.facts, start, width);
    auto const end = indent + columnsOf(entry.name);
    text.append(indent, ' ').append(entry.name);
    if (end + GAP <= textStart && !lines.empty()) {
        text.append(textStart - end, ' ').append(lines, textStart);
    } else {
        text.append("\n").append(lines);
    }
}

} // namespace kivo::configuration
