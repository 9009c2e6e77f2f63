// Explains the values of a specification's settings: what a tool reads, where it comes from, and why the rest lost.

#include "Commands.h"
#include "Complaints.h"
#include "Faults.h"
#include "Findings.h"
#include "Inputs.h"
#include "Installation.h"
#include "Origins.h"
#include "settings/TypeTable.h"
#include "text/Characters.h"
#include "text/CodePage.h"
#include "text/Json.h"

#include <configuration/InspectionReport.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <unordered_set>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

constexpr std::size_t MAX_CANDIDATES = 10; // that a complaint names

/// What is to be explained, and how.
struct Options {
    Inputs inputs;
    std::vector<std::string> names; // empty: all settings
    bool showsValuesOnly = false;
    bool showsChangedOnly = false;
};

[[noreturn]] void throwUnknownSetting(Inspection const& inspection, std::string const& name) {
    auto const meant = inspection.suggestSetting(name.c_str());
    auto const specification = std::string(inspection.getSpecificationId());
    throw CallFault(
        '"' + specification + "\" has no setting \"" + name + '"' +
        (meant.empty() ? "; kivoconfig explain " + specification + " shows all" : "; did you mean \"" + meant + "\"?"));
}

[[noreturn]] void throwAmbiguousSetting(std::string const& name, std::vector<InspectedSetting> const& candidates) {
    auto text = '"' + name + "\" is the name of several settings: ";
    for (std::size_t i = 0; i < std::min(candidates.size(), MAX_CANDIDATES); ++i) {
        text.append(i > 0 ? ", " : "").append(candidates[i].getName());
    }
    auto const others = candidates.size() - std::min(candidates.size(), MAX_CANDIDATES);
    throw CallFault(others > 0 ? text + " and " + std::to_string(others) + " more" : text);
}

/// The settings of a name, each by its full name.
std::vector<InspectedSetting> findSettings(Inspection const& inspection, std::string const& name) {
    auto found = inspection.findSettings(name.c_str());
    if (found.empty()) {
        throwUnknownSetting(inspection, name);
    }
    if (found.size() > 1 && folded(found[0].getName()) != folded(name)) {
        throwAmbiguousSetting(name, found);
    }
    return found;
}

std::vector<InspectedSetting> selectSettings(Inspection const& inspection, Options const& options) {
    auto settings = options.names.empty() ? inspection.getSettings() : std::vector<InspectedSetting>();
    std::unordered_set<std::string> names;
    for (auto const& name : options.names) {
        for (auto const& setting : findSettings(inspection, name)) {
            if (names.insert(setting.getName()).second) {
                settings.push_back(setting);
            }
        }
    }
    std::erase_if(settings, [&](auto const& each) { return options.showsChangedOnly && !each.isGiven(); });
    return settings;
}

Json documentOf(InspectedText const& text) {
    auto const* const given = text.getText();
    return {{"text", given ? Json(toUtf8(given)) : Json(nullptr)}, {"origin", toJson(text.getOrigin())}};
}

Json documentOf(InspectedSetting const& setting) {
    Json document{{"name", toUtf8(setting.getName())},
                  {"path", Json::array()},
                  {"type", rowOf(setting.getParameter().getValueType()).word},
                  {"values", Json::array()},
                  {"alternatives", Json::array()}};
    for (unsigned long i = 0; i < setting.getNumberOfPathParts(); ++i) {
        document["path"].push_back(toUtf8(setting.getPathPart(i)));
    }
    for (unsigned long i = 0; i < setting.getNumberOfValues(); ++i) {
        document["values"].push_back(documentOf(setting.getValue(i)));
    }
    for (unsigned long i = 0; i < setting.getNumberOfAlternatives(); ++i) {
        auto alternative = documentOf(setting.getAlternative(i));
        alternative["verdict"] = InspectedText::getVerdictName(setting.getAlternative(i).getVerdict());
        document["alternatives"].push_back(std::move(alternative));
    }
    return document;
}

void writeDocument(std::ostream& out, Inspection const& inspection, std::vector<InspectedSetting> const& settings) {
    auto documents = Json::array();
    for (auto const& setting : settings) {
        documents.push_back(documentOf(setting));
    }
    writeJson(out, {{"version", JSON_VERSION},
                    {"specification", toUtf8(inspection.getSpecificationId())},
                    {"settings", std::move(documents)},
                    {"findings", toJson(inspection.getFindings())}});
}

/// Only the values go to standard output: scripts read it.
void writeValues(std::ostream& out, Inspection const& inspection, std::vector<InspectedSetting> const& settings) {
    for (auto const& setting : settings) {
        out << composeValues(setting); // to the byte
    }
    out.flush();
    writeFindings(std::cerr, inspection.getFindings());
}

void writeText(std::ostream& out, Inspection const& inspection, std::vector<InspectedSetting> const& settings) {
    for (auto const& setting : settings) {
        out << toLocal(printableLines(toUtf8(composeExplanation(setting))));
    }
    writeFindings(out, inspection.getFindings());
}

ExitStatus explain(Options const& options, Call& call) {
    auto const inspection = inspect(findSpecification(call.specification), options.inputs, call);
    auto const settings = selectSettings(inspection, options);
    if (!call.hasArguments) {
        complain("note: there is no \"--\" with the tool's arguments, so nothing counts as missing, and defaults are "
                 "shown as they apply once anything is given");
    }
    if (call.isJson) {
        writeDocument(call.out, inspection, settings);
    } else {
        options.showsValuesOnly ? writeValues(call.out, inspection, settings)
                                : writeText(call.out, inspection, settings);
    }
    return statusOf(inspection.getFindings(), call);
}

} // namespace

Work prepareExplain(CommandOptions& options, Call& call) {
    auto const asked = std::make_shared<Options>();
    addSpecification(options, call);
    auto setting =
        options.addTexts("--setting", asked->names,
                         "Explain this setting only: its full name, or the last part if that is unique; may be given "
                         "several times");
    setting.showAs("NAME");
    auto value = options.addFlag("--value", asked->showsValuesOnly, "Print bare values, one a line");
    options.addFlag("--changed", asked->showsChangedOnly, "Leave out settings that have only their default");
    addInputs(options, asked->inputs);
    addFatalWarnings(options, call);
    value.need(setting).exclude(addJson(options, call));
    return [&call, asked] { return explain(*asked, call); };
}

} // namespace kivoconfig
