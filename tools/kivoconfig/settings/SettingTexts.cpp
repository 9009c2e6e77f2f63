#include "settings/SettingTexts.h"

#include "settings/TypeTable.h"
#include "text/Characters.h"
#include "text/CodePage.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroup.h>

#include <algorithm>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

char const* const SEVERAL_TIMES = " May be given several times.";
std::string const SECRET = "****"; // in the place of a text

bool isPlain(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           std::string_view("_-+:/").find(c) != std::string_view::npos;
}

/// A value inside a sentence: in quotes, unless it is a word.
std::string shown(std::string const& value) {
    bool const isWord = !value.empty() && std::ranges::all_of(value, isPlain);
    return isWord ? value : '"' + printable(value) + '"';
}

/// A sentence about a text of a registry file, which may have its own end.
std::string sentence(std::string const& lead, char const* text) {
    auto const words = printable(collapsed(toUtf8(text)));
    bool const isEnded = !words.empty() && std::string_view(".!?").find(words.back()) != std::string_view::npos;
    return ' ' + lead + words + (isEnded ? "" : ".");
}

std::string factOf(char const* lead, char const* text) {
    return text ? std::string(" ") + lead + ' ' + shown(toUtf8(text)) + '.' : "";
}

std::string joined(std::vector<std::string> const& labels) {
    std::string text;
    for (auto const& label : labels) {
        text.append(text.empty() ? "" : ", ").append(shown(label));
    }
    return text;
}

std::string describeType(Parameter::ValueType type) {
    auto const& row = rowOf(type);
    return std::string("Type: ") + row.word + (row.forms ? std::string(", such as ") + row.forms : "") + '.';
}

std::string factsOfMarks(Parameter const& parameter) {
    char const* const deprecation = parameter.getDeprecation();
    return (parameter.isSensitive() ? " Secret: keep it out of command lines, and of files that others can read."
                                    : "") +
           factOf("Formerly", parameter.getFormerName()) + (deprecation ? sentence("Deprecated: ", deprecation) : "");
}

} // namespace

std::string descriptionOf(ParameterItem const& item) { return printable(collapsed(toUtf8(item.getDescription()))); }

std::string factsOf(Setting const& setting) {
    auto const& parameter = setting.parameter;
    auto const labels = labelsOf(parameter);
    std::string facts = labels.empty() ? describeType(parameter.getValueType()) : "One of: " + joined(labels) + '.';
    facts += factOf("At least", parameter.getMinimum()) + factOf("At most", parameter.getMaximum());
    if (!parameter.isOptional()) {
        facts += " Required.";
    }
    if (setting.defaultText) {
        facts += " Default: " + (parameter.isSensitive() ? SECRET : shown(*setting.defaultText)) + '.';
    }
    if (parameter.isUnbounded()) {
        facts += SEVERAL_TIMES;
    }
    for (auto const& alternative : setting.alternatives) {
        facts += " Excludes the other alternatives of " + shown(toUtf8(alternative.choice->getName())) + '.';
    }
    return facts + factsOfMarks(parameter);
}

std::string factsOfSection(ParameterGroup const& section) {
    return std::string("Section.") + (section.isOptional() ? "" : " Required.") +
           (section.isUnbounded() ? SEVERAL_TIMES : "");
}

std::string valueNameOf(Parameter const& parameter) {
    char const* const name = parameter.getValueName();
    return name ? printable(toUtf8(name)) : "";
}

std::vector<std::string> labelsOf(Parameter const& parameter) {
    std::vector<std::string> labels;
    if (auto const* definition = parameter.getEnumDefinition()) {
        for (unsigned long i = 0; i < definition->getNumberOfSymbols(); ++i) {
            labels.push_back(toUtf8(definition->getSymbol(i)));
        }
    }
    return labels;
}

bool isAboutHelp(Parameter const& parameter) {
    static constexpr std::string_view NAMES[] = {"help", "quiet", "notitle"};
    return std::ranges::find(NAMES, folded(parameter.getId())) != std::end(NAMES);
}

} // namespace kivoconfig
