#include "support/CaseFile.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"

#include <configuration/ConfigurationParameterException.h>
#include <configuration/Flags.h>
#include <configuration/Inspection.h>
#include <configuration/InspectionReport.h>
#include <configuration/Memory.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ValueGroup.h>
#include <configuration/ValueProvider.h>

#include <list>
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
            auto const written = installation.write(path, unescaped(content));
            using std::filesystem::perms;
            permissions(std::filesystem::path(written), row["flags"].find("private") == std::string::npos
                                                            ? perms::owner_all | perms::others_read
                                                            : perms::owner_all | perms::group_read);
        }
    }
    auto const flags = row["flags"];
    auto const has = [&](char const* flag) { return flags.find(flag) != std::string::npos; };
    int const bits = (has("strict") ? STRICT_RECOGNITION : 0) | (has("names") ? RESOLVE_FLAG_NAMES : 0);
    if (auto const values = row["values"]; !values.empty()) {
        manager.setApplicationValues(*treeOf(values), 0);
        return composeExplanation(Inspection(specification, has("required"), bits), has("changed"));
    }
    std::list<ScopedEnvironment> environment;
    std::istringstream variables(row["environment"]);
    for (std::string variable; variables >> variable;) {
        auto const equals = variable.find('=');
        environment.emplace_back(variable.substr(0, equals), variable.substr(equals + 1));
    }
    auto const inputs = InspectionInputs()
                            .setMachineConfig(InspectionInputs::MACHINE_CONFIG_TAKEN)
                            .setApplicationFile(row["application"].c_str())
                            .setArguments(static_cast<unsigned>(argv.size()), argv.data())
                            .setEnvironment(environment.empty() ? nullptr : "TOOL")
                            .setCommandLineStyle(has("gnu") ? GNU_COMMAND_LINE : PLAIN_COMMAND_LINE)
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

/// Finds what is wrong with every text, in words of its own.
class Telling final : public ParameterValidator {
public:
    Telling() : ParameterValidator("telling") {}
    using ParameterValidator::validate;
    char* validate(char const* text) const override {
        return *text == 'T' ? throw ConfigurationException("thrown: %s", text)
                            : cloneString((std::string("told: ") + text).c_str());
    }
};

TEST_F(InspectionTest, KeepsSecretsFromReportsButNotFromPrograms) {
    manager().addValidator(std::make_unique<Telling>().release());
    auto const& specification = *createTool("tool{a?$^b@c!telling= d?$!telling= n:int?$=1}");
    static_cast<Parameter*>(manager().getParameterItem("n"))->setMaximum("5");
    manager().setApplicationValues(*treeOf("{tool{b=sesame d=Thyme n=7}}"), 0);
    Inspection const inspection(specification, true, 0);
    EXPECT_EQ(composeExplanation(inspection, false), R"(a = ****
    application  ****  wins
    default      ****  not-used
d = ****
    application  ****  wins
    default      ****  not-used
n = ****
    application  ****  wins
    default      ****  not-used
application: warning: "b" is the former name of "a" [former-name]; did you mean "a"?
application: error: a: "****" is refused by the validator "telling" [rejected-value]
application: error: d: "****" is refused [rejected-value]
application: error: n: "****" is greater than the maximum "5" [out-of-range]
application: warning: "a" is deprecated: c [deprecated]
3 errors, 2 warnings
)");
    EXPECT_EQ(composeValues(inspection.getSettings()[0]), "****\n");
    EXPECT_STREQ(inspection.getSettings()[0].getValue(0).revealText(), "sesame");
    EXPECT_STREQ(inspection.getFindings()[1].revealMessage(), "told: sesame\n");
    EXPECT_STREQ(inspection.getFindings()[2].revealMessage(), "thrown: Thyme");
    EXPECT_TRUE(installation.mainLog("Kernel").empty());
}

TEST_F(InspectionTest, FindsAndSuggestsSettings) {
    auto const& specification =
        *createTool("tool{level?=1 in{level?=2 days?^age=3} days?~=4 trace?~=5 m?*{delay?=6} delay?=7}");
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
    EXPECT_EQ(namesOf("m.delay"), "m[1].delay ");
    EXPECT_EQ(namesOf("m[1].delay"), "m[1].delay ");
    EXPECT_EQ(namesOf("age"), "in.days ");
    EXPECT_EQ(namesOf("in.Age"), "in.days ");
    EXPECT_EQ(namesOf("level.age"), "");
    EXPECT_EQ(namesOf(""), "");
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
