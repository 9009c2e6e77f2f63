#include "kernel/kvProcessInit.h"

#include "inspection/ToolSources.h"

#include <configuration/ApplicationValuesProvider.h>
#include <configuration/CommandLineValueProvider.h>
#include <configuration/EnvironmentValueProvider.h>
#include <configuration/Manager.h>
#include <configuration/ParameterGroup.h>
#include <configuration/XmlFileValueProvider.h>

#include "inspection/InspectionPipeline.h"
#include "manager/ContextMgr.h"
#include "manager/ToolStart.h"
#include "providers/CommandLineArguments.h"
#include "providers/GnuArguments.h"
#include "providers/XmlValuesFile.h"
#include "registry/xml/XmlFile.h"
#include "registry/xml/XmlScope.h"
#include "schema/FaultCollection.h"

#include <algorithm>
#include <typeinfo>

namespace kivo::configuration {

namespace {

/// Reads a values file and says what is wrong with it. Unlike a request, it writes nothing to the main log.
/// @return the file's tree, or null
std::unique_ptr<ParameterValueGroup> readFile(InspectionPipeline& pipeline, std::string const& path) {
    XmlFile const file(path.c_str());
    StoredOrigin const origin(Origin::FILE_SOURCE, path);
    for (auto const& warning : file.getWarnings()) {
        pipeline.getFindings().add(Finding::WARNING_SEVERITY, Rule::SUSPICIOUS_XML, warning, origin);
    }
    ParameterErrors faults;
    bool const isRead = runOrCollect(&faults, Rule::INVALID_XML, origin, [&] { file.getErrors().throwIfErrors(); });
    pipeline.takeFaults(faults);
    return std::unique_ptr<ParameterValueGroup>(isRead ? getGroupFromXmlDocument(file.getDocument(), origin) : nullptr);
}

/// @param demand as for findConfigurationFile()
void addNamedFile(InspectionPipeline& pipeline, std::string const& name, StoredOrigin const& demand) {
    ParameterErrors faults;
    std::optional<std::string> path;
    runOrCollect(&faults, Rule::MISSING_FILE, demand, [&] { path = findConfigurationFile(name, false, demand); });
    pipeline.takeFaults(faults);
    if (auto const tree = path ? readFile(pipeline, *path) : nullptr) {
        pipeline.addFile(*tree, false);
    }
}

void addArguments(InspectionPipeline& pipeline, ToolArguments const& split) {
    ArgumentTexts arguments{std::vector<std::string>(split.kept.size()), split.keptIndexes};
    std::ranges::transform(split.kept, arguments.texts.begin(),
                           [](auto const& each) { return trimArgument(each.c_str()); });
    ParameterErrors faults;
    auto const values = parseArguments(arguments, 0, &faults);
    pipeline.takeFaults(faults);
    pipeline.addArguments(*values, arguments);
}

/// @return whether the file is there and was left out
bool addMachineConfig(InspectionPipeline& pipeline, InspectionInputs::MachineConfig machineConfig) {
    auto const path = findConfigurationFile(machineConfigurationFile(), true, {});
    auto const tree = path ? readFile(pipeline, *path) : nullptr;
    if (!tree) {
        return false;
    }
    char const* const id = tree->getParameterItemId();
    bool const isAddressed = id && equalIgnoringCase(id, pipeline.getRoot().getId());
    if (machineConfig == InspectionInputs::MACHINE_CONFIG_TAKEN_IF_ADDRESSED && !isAddressed) {
        return true;
    }
    pipeline.addFile(*tree, false);
    return false;
}

} // namespace

bool addToolSources(InspectionPipeline& pipeline, ToolInputs const& inputs) {
    ContextMgr const context;
    XmlScope const scope;
    auto const split = splitArguments(inputs.arguments, inputs.style);
    for (auto const& file : split.files) {
        ParameterErrors faults;
        bool const isNamed =
            runOrCollect(&faults, Rule::MISSING_VALUE, file.flag, [&] { static_cast<void>(nameOf(file)); });
        pipeline.takeFaults(faults);
        if (isNamed) {
            addNamedFile(pipeline, file.name, file.flag);
        }
    }
    if (!inputs.arguments.empty() && inputs.style == GNU_COMMAND_LINE) {
        pipeline.addArguments(GnuArguments{split.kept, split.keptIndexes, true});
    } else if (!inputs.arguments.empty()) {
        addArguments(pipeline, split);
    }
    if (inputs.environment) {
        pipeline.addEnvironment(*inputs.environment);
    }
    if (!inputs.applicationFile.empty()) {
        addNamedFile(pipeline, inputs.applicationFile, {});
    }
    return inputs.machineConfig != InspectionInputs::MACHINE_CONFIG_LEFT_OUT &&
           addMachineConfig(pipeline, inputs.machineConfig);
}

void addProviders(InspectionPipeline& pipeline, Manager& manager, int flags) {
    for (unsigned long i = 0; i < manager.getNumberOfProviders(); ++i) {
        auto& provider = *manager.getProvider(i);
        auto const& type = typeid(provider);
        if (!provider.getEnabled()) {
            continue;
        }
        if (type == typeid(CommandLineValueProvider)) {
            auto const& commandLine = static_cast<CommandLineValueProvider&>(provider);
            if (auto const* const arguments = commandLine.getGnuArguments()) {
                pipeline.addArguments(*arguments);
            } else {
                pipeline.addArguments(commandLine.getArguments(), commandLine.getTexts());
            }
        } else if (type == typeid(XmlFileValueProvider)) {
            pipeline.addFile(provider.getDataCache(), static_cast<XmlFileValueProvider&>(provider).isFixed());
        } else if (type == typeid(ApplicationValuesProvider)) {
            pipeline.addApplicationValues(provider.getDataCache());
        } else if (type == typeid(EnvironmentValueProvider)) {
            pipeline.addEnvironment(static_cast<EnvironmentValueProvider&>(provider).getVariables());
        } else if (!pipeline.addProvider(provider, flags)) {
            return;
        }
    }
}

} // namespace kivo::configuration
