#include "support/CaseFile.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"

#include <configuration/ConfigurationParameterException.h>
#include <configuration/Flags.h>
#include <configuration/Inspection.h>
#include <configuration/InspectionReport.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ValueGroup.h>
#include <configuration/ValueProvider.h>

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

TEST_F(InspectionTest, LeavesSourcesAndSettingsAsTheyAreAndLogsNothing) {
    auto const& specification = *createTool("tool{u?* a?=1}");
    auto const file = installation.write("a.xml", "<tool><u value='1'/><u value='2'/></tool>");
    char const* const argv[] = {"tool", "-a", "2"};
    manager().enableConfiguration(false, file.c_str(), 3, argv);
    auto const before = toText(manager().getProvider(1)->getDataCache());
    auto const records = installation.mainLog("Configuration");

    Inspection const inspection(specification, true, 0);
    EXPECT_EQ(inspection.getSettings().size(), 2u);
    EXPECT_EQ(toText(manager().getProvider(1)->getDataCache()), before);
    auto const* const kept = manager().getValueGroup("tool", true, 0).getCurrentValueGroup();
    Inspection(specification, InspectionInputs().setApplicationFile(file.c_str()));
    EXPECT_EQ(manager().getValueGroup("tool", true, 0).getCurrentValueGroup(), kept);
    EXPECT_EQ(installation.mainLog("Configuration"), records);
}

/// A provider of the caller's own whose source does not answer.
class BusyProvider final : public ValueProvider {
public:
    BusyProvider() : ValueProvider(1) {}
    char const* getName() const override { return "BUSY"; }
    using ValueProvider::setArguments;
    void setArguments(ParameterValueGroup const&, int) override {}
    bool getValues(Specification const*, ParameterValueGroup&, int) override {
        throw ConfigurationException("the line is busy");
    }
};

TEST_F(InspectionTest, ProvidersCannotHideWhatOthersGive) {
    auto const& specification = *createTool("tool{a?=1 b?=2}");
    auto* const busy = std::make_unique<BusyProvider>().release();
    manager().registerProvider(busy);
    busy->enableProvider(ParameterValueGroup(nullptr), 0);
    auto unnamed = treeOf("tool{a=3}");
    unnamed->addItem(std::make_unique<ParameterValueGroup>(nullptr).release());
    manager().setApplicationValues(*unnamed, 0);
    EXPECT_EQ(composeExplanation(Inspection(specification, true, 0), true),
              "a = 3\n    application  3  wins\n    default      1  not-used\n"
              "application: error: An unnamed value group was found [unnamed-item]\n"
              "BUSY: error: the line is busy [failed-provider]\n"
              "2 errors\n");
}

TEST_F(InspectionTest, FindsAndSuggestsSettings) {
    auto const& specification = *createTool("tool{level?=1 in{level?=2 days?=3} days?~=4 trace?~=5}");
    Inspection const inspection(specification, InspectionInputs().setOpenCommandLine(true));
    auto const namesOf = [&](char const* name) {
        std::string names;
        for (auto const& setting : inspection.findSettings(name)) {
            names.append(setting.getName()).append(" ");
        }
        return names;
    };
    EXPECT_EQ(namesOf("LEVEL"), "level ");
    EXPECT_EQ(namesOf("days"), "days ");
    EXPECT_EQ(namesOf("in.days"), "in.days ");
    EXPECT_EQ(namesOf("trace"), "trace ");
    EXPECT_EQ(namesOf("in.dayz"), "");
    EXPECT_EQ(inspection.suggestSetting("in.dayz"), "in.days");
    EXPECT_EQ(inspection.suggestSetting("nothing"), "");
}

TEST_F(InspectionTest, RequestsSuggestNamesToo) {
    createTool("tool{in?*{location?=l} compression?=1}");
    auto const file = installation.write("a.xml", "<tool compresion='1'><in/><in locatoin='x'/></tool>");
    manager().enableConfiguration(false, file.c_str(), 0, nullptr);
    try {
        manager().getValueGroup("tool", true, STRICT_RECOGNITION);
        FAIL() << "no fault was found";
    } catch (ConfigurationParameterException const& thrown) {
        EXPECT_STREQ(thrown.getErrors().getSuggestion(0), "compression");
        EXPECT_STREQ(thrown.getErrors().getSuggestion(1), "in[2].location");
    }
}

} // namespace

} // namespace kivo::test
