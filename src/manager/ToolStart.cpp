#include "kernel/kvProcessInit.h"

#include "manager/ToolStart.h"

#include <configuration/ConfigurationException.h>

#include "kernel/kvDirectories.h"
#include "kernel/kvFiles.h"
#include "manager/InstallationPaths.h"
#include "providers/CommandLineArguments.h"
#include "providers/GnuArguments.h"
#include "schema/LocatedException.h"
#include "schema/NameComparison.h"

#include <algorithm>
#include <utility>

namespace kivo::configuration {

namespace {

constexpr char const* LOAD_CONFIGURATION_FLAG = "loadConfiguration";
constexpr char const* MACHINE_CONFIGURATION_FILE_NAME = "machine.config";

/// Collects the arguments of a tool, one after the other.
class ArgumentCollector {
public:
    explicit ArgumentCollector(std::vector<std::string> const& arguments) : mArguments(arguments) { keep(0, 1); }

    void keep(std::size_t index, std::size_t count) {
        for (auto i = index; i < index + count; ++i) {
            mSplit.kept.push_back(mArguments[i]);
            mSplit.keptIndexes.push_back(i);
        }
    }
    void addFile(std::string_view name, std::size_t index) {
        mSplit.files.push_back({std::string(name), StoredOrigin::ofCommandLine().at(index)});
    }
    ToolArguments take() { return std::move(mSplit); }

private:
    std::vector<std::string> const& mArguments;
    ToolArguments mSplit;
};

bool namesFile(std::string_view flag) { return equalIgnoringCase(flag, LOAD_CONFIGURATION_FLAG); }

void collectPlain(std::vector<std::string> const& arguments, ArgumentCollector& collector) {
    for (auto const& [argument, value, index] : pairArguments(arguments)) {
        if (isFlag(*argument) && namesFile(std::string_view(*argument).substr(1))) {
            collector.addFile(value ? *value : "", index);
        } else {
            collector.keep(index, value ? 2 : 1);
        }
    }
}

void collectGnu(std::vector<std::string> const& arguments, ArgumentCollector& collector) {
    auto const end =
        static_cast<std::size_t>(std::find(arguments.begin() + 1, arguments.end(), END_OF_FLAGS) - arguments.begin());
    for (std::size_t i = 1; i < end; ++i) {
        auto const flag = parseGnuFlag(arguments[i]);
        if (!flag || !namesFile(flag->name)) {
            collector.keep(i, 1);
        } else if (flag->value) {
            collector.addFile(*flag->value, i);
        } else {
            bool const hasValue = i + 1 < end && !parseGnuFlag(arguments[i + 1]);
            collector.addFile(hasValue ? arguments[i + 1] : "", i);
            i += hasValue ? 1 : 0;
        }
    }
    collector.keep(end, arguments.size() - end);
}

} // namespace

ToolArguments splitArguments(std::vector<std::string> const& arguments, CommandLineStyle style) {
    if (arguments.empty()) {
        return {};
    }
    ArgumentCollector collector(arguments);
    (style == GNU_COMMAND_LINE ? collectGnu : collectPlain)(arguments, collector);
    return collector.take();
}

std::string const& nameOf(ToolArguments::File const& file) {
    if (file.name.empty()) {
        throw located(file.flag, ConfigurationException("Missing value for the -loadConfiguration parameter"));
    }
    return file.name;
}

std::string machineConfigurationFile() {
    return installationDirectory(kvGetConfigDir) + MACHINE_CONFIGURATION_FILE_NAME;
}

std::optional<std::string> findConfigurationFile(std::string const& path, bool allowMissing,
                                                 StoredOrigin const& demand) {
    auto resolved = path;
    if (kvLocalExists(resolved.c_str()) == KV_FILE_MISSING && path.find(directorySeparator()) == std::string::npos) {
        resolved = installationDirectory(kvGetConfigDir) + path;
    }
    if (kvLocalExists(resolved.c_str()) != KV_FILE_MISSING) {
        return resolved;
    }
    if (allowMissing) {
        return std::nullopt;
    }
    throw located(demand.isKnown() ? demand : StoredOrigin(Origin::FILE_SOURCE, resolved),
                  ConfigurationException("File \"%s\" was not found", resolved.c_str()));
}

} // namespace kivo::configuration
