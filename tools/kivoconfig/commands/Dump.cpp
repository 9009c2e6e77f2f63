// Writes the values that a tool would get as a values file, or as a nested object for scripts.

#include "Commands.h"
#include "Findings.h"
#include "Inputs.h"
#include "Installation.h"
#include "dump/DumpedFile.h"
#include "dump/DumpedSection.h"
#include "dump/Selection.h"
#include "settings/ValuesFileNames.h"
#include "text/CodePage.h"
#include "text/Json.h"

#include <configuration/Inspection.h>
#include <configuration/Parameter.h>
#include <configuration/Specification.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <utility>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

struct Options {
    Inputs inputs = {};
    bool takesDefaults = false;
    bool showsSecrets = false;
};

/// Several texts, or a setting that can have several: an array.
Json toJson(DumpedSetting const& setting) {
    auto texts = Json::array();
    for (unsigned long i = 0; i < setting.value->getNumberOfValues(); ++i) {
        char const* const text = setting.value->getValue(i, false);
        texts.push_back(text ? Json(toUtf8(text)) : Json());
    }
    return setting.getParameter().isUnbounded() || texts.size() > 1 ? texts : texts[0];
}

Json toJson(DumpedSection const& section) {
    Json::object_t members; // names differ, so nothing is looked up: that would be slow
    for (auto const& setting : section.settings) {
        if (setting.use == Use::VALUE) {
            members.emplace_back(toUtf8(setting.getParameter().getId()), toJson(setting));
        }
    }
    ParameterGroup const* last = nullptr;
    for (auto const& inner : section.sections) {
        if (inner.use != Use::VALUE) {
            continue;
        }
        bool const isRepeated = inner.group->isUnbounded();
        if (std::exchange(last, inner.group) != inner.group) {
            members.emplace_back(toUtf8(inner.group->getId()), isRepeated ? Json::array() : Json());
        }
        auto& member = members.back().second;
        isRepeated ? member.push_back(toJson(inner)) : void(member = toJson(inner));
    }
    return members;
}

/// Errors are worth knowing, since the values are as faulty as they were given.
bool tellErrors(Inspection const& inspection) {
    std::vector<Finding> errors;
    std::ranges::copy_if(inspection.getFindings(), std::back_inserter(errors),
                         [](Finding const& finding) { return finding.getSeverity() == Finding::ERROR_SEVERITY; });
    writeFindings(std::cerr, errors);
    return !errors.empty();
}

/// A values file has one element for the specification.
void keepFirst(std::vector<DumpedSection>& occurrences, Selection& selection) {
    for (; occurrences.size() > 1; occurrences.pop_back()) {
        auto const& prefix = occurrences.back().prefix;
        selection.leaveOut(prefix.substr(0, prefix.size() - 1), "a values file has one element for the specification");
    }
}

void writeDocument(std::ostream& out, Specification const& specification, std::vector<DumpedSection> const& sections) {
    auto values = Json::array();
    for (auto const& section : sections) {
        values.push_back(toJson(section));
    }
    bool const isRepeated = specification.getParameterGroup()->isUnbounded();
    writeJson(out, {{"version", JSON_VERSION},
                    {"specification", toUtf8(specification.getId())},
                    {"values", isRepeated ? values : values[0]}});
}

ExitStatus dump(Specification const& specification, Options const& options, Call& call) {
    auto const inspection = inspect(specification, options.inputs, call);
    bool const hasErrors = tellErrors(inspection);
    auto sections = readSections(specification, inspection);
    Selection selection({!call.isJson, options.takesDefaults, options.showsSecrets, !call.hasArguments});
    if (!call.isJson) {
        keepFirst(sections, selection);
    }
    for (auto& section : sections) {
        selection.select(section);
    }
    call.isJson ? writeDocument(call.out, specification, sections) : writeFile(call.out, sections.front());
    return hasErrors || selection.hasLeftOut() ? ERROR_FOUND : NO_ERROR_FOUND;
}

} // namespace

Work prepareDump(CommandOptions& options, Call& call) {
    auto const given = std::make_shared<Options>();
    addSpecification(options, call);
    addInputs(options, given->inputs);
    options.addFlag("--all", given->takesDefaults, "Write defaults as values, too");
    options.addFlag("--secrets", given->showsSecrets, "Write secret values, too");
    addJson(options, call);
    return [&call, given] {
        auto const& specification = findSpecification(call.specification);
        if (!call.isJson) {
            requireValuesFiles(specification);
        }
        return dump(specification, *given, call);
    };
}

} // namespace kivoconfig
