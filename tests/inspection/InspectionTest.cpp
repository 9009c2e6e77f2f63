#include "support/CaseFile.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"

#include <configuration/Flags.h>
#include <configuration/Inspection.h>
#include <configuration/InspectionReport.h>
#include <configuration/ParameterEnumDefinition.h>

#include <sstream>

namespace kivo::test {

using namespace configuration;

namespace {

class InspectionTest : public ManagerTest {
protected:
    InspectionTest() { std::filesystem::current_path(installation.at("")); }
    ~InspectionTest() override { std::filesystem::current_path(mBefore); }

private:
    std::filesystem::path mBefore = std::filesystem::current_path();
    ScopedEnvironment mConfig{"KIVO_CONFIG_DIR", "config"};
};

/// What explain shows for a case.
std::string explain(FileCase const& row, TemporaryInstallation const& installation) {
    auto& manager = *Manager::getInstance();
    manager.reset();
    auto* const labels = std::make_unique<ParameterEnumDefinition>("labels").release();
    labels->addEnumValue("fast", 1);
    labels->addEnumValue("thorough", 2);
    manager.registerEnumDefinition(labels);
    auto const& specification = *createTool(row["schema"]);
    if (auto* const item = manager.getParameterItem("mode")) {
        static_cast<Parameter*>(item)->setEnumDefinition(labels);
    }
    std::vector<std::string> arguments{"tool"};
    std::istringstream words(row["arguments"]);
    for (std::string word; words >> word;) {
        arguments.push_back(word == "''" ? "" : word);
    }
    std::vector<char const*> argv;
    for (auto const& argument : arguments) {
        argv.push_back(argument.c_str());
    }
    for (char const* file : {"a.xml", "b.xml", "machine.config"}) {
        auto const path = std::string("config/") + file;
        std::filesystem::remove(installation.at(path));
        if (auto const content = row[file]; !content.empty()) {
            installation.write(path, unescaped(content));
        }
    }
    auto const flags = row["flags"];
    auto const has = [&](char const* flag) { return flags.find(flag) != std::string::npos; };
    int const bits = (has("strict") ? STRICT_RECOGNITION : 0) | (has("names") ? RESOLVE_FLAG_NAMES : 0);
    if (auto const values = row["values"]; !values.empty()) {
        manager.setApplicationValues(*treeOf(values), 0);
        return composeExplanation(Inspection(specification, has("required"), bits), has("changed"));
    }
    auto const inputs = InspectionInputs()
                            .setMachineConfig(InspectionInputs::MACHINE_CONFIG_TAKEN)
                            .setApplicationFile(row["application"].c_str())
                            .setArguments(static_cast<unsigned>(argv.size()), argv.data())
                            .setOpenCommandLine(has("open"))
                            .setFlags(bits)
                            .setRequired(has("required"));
    return composeExplanation(Inspection(specification, inputs), has("changed"));
}

TEST_F(InspectionTest, ExplainsSettingsAndFindings) {
    checkCases("inspection/findings.txt", [&](FileCase const& row) { return explain(row, installation); });
}

} // namespace

} // namespace kivo::test
