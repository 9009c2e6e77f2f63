#include <configuration/ConfigurationException.h>
#include <configuration/ConfigurationParameterException.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>
#include <configuration/ValueGroup.h>
#include <configuration/ValueProvider.h>

#include "kernel/standalone/kvTrace.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/ValueTree.h"
#include "visitors/Notation.h"

#include <gmock/gmock.h>

namespace kivo::test {

using namespace configuration;
using testing::ElementsAre;

namespace {

using Arguments = std::vector<char const*>;

/// The values files of the tests, which all stand for "tool": a.xml, b.xml and machine.config in the configuration
/// directory, here/a.xml elsewhere, and bad.xml, which is no XML.
class EnablingTest : public ManagerTest {
protected:
    EnablingTest() {
        installation.write("config/a.xml", "<tool a=\"config\"/>");
        installation.write("config/b.xml", "<tool b=\"config\"/>");
        installation.write("config/bad.xml", "<tool");
        installation.write("here/a.xml", "<tool a=\"here\"/>");
        std::filesystem::current_path(installation.at("here"));
    }
    ~EnablingTest() override { std::filesystem::current_path(mBefore); }

    static void enable(bool allowMachineConfig, char const* file, Arguments const& arguments) {
        manager().enableConfiguration(allowMachineConfig, file, static_cast<unsigned int>(arguments.size()),
                                      arguments.data());
    }

    /// The main log without the record of the registry file.
    std::vector<std::string> records() const {
        auto records = installation.mainLog("Configuration");
        records.erase(records.begin());
        return records;
    }

    /// Priority, name and values of each provider, "-" before those that are not enabled.
    static std::string providers() {
        Specification const tool("tool", "Description");
        if (!manager().getParameterItem("tool")) {
            createTool("tool{}");
        }
        std::string text;
        for (unsigned long i = 0; i < manager().getNumberOfProviders(); ++i) {
            auto& provider = *manager().getProvider(i);
            if (ParameterValueGroup result(nullptr); provider.getEnabled()) {
                provider.getValues(&tool, result, 0); // a command line shows then what it has parsed
            }
            text += (i > 0 ? " | " : "") + std::string(provider.getEnabled() ? "" : "-") +
                    std::to_string(provider.getPriority()) + " " + provider.getName() + " " +
                    toText(provider.getDataCache());
        }
        return text;
    }

private:
    std::filesystem::path mBefore = std::filesystem::current_path();
};

std::string enabled(std::string const& allow, std::string const& file, std::string const& commandLine) {
    return "enableConfiguration:\n [allow machine config = " + allow + "]\n [application config file = \"" + file +
           "\"]\n [command line = " + commandLine + "]";
}
std::string loaded(std::string const& outcome, std::string const& file) {
    return "loadConfigurationFile: [" + outcome + "]\n [file = \"" + file + "\"]";
}

struct EnablingCase {
    char const* label;
    bool allowMachineConfig;
    char const* file;
    Arguments arguments;
    char const* providers;
    std::vector<std::string> log;
    char const* thrown = "<nothing>";
};

class Enabling : public EnablingTest, public testing::WithParamInterface<EnablingCase> {};

TEST_P(Enabling, SetsProvidersUpAndRecordsIt) {
    auto const& row = GetParam();
    EXPECT_EQ(whatOf<ConfigurationException>([&] { enable(row.allowMachineConfig, row.file, row.arguments); }),
              row.thrown);
    EXPECT_EQ(records(), row.log);
    EXPECT_EQ(providers(), row.providers);
}

constexpr char const* MISSING_VALUE = "Missing value for the -loadConfiguration parameter";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Manager, Enabling, testing::Values(
    EnablingCase{"Nothing", false, nullptr, {}, "", {enabled("false", "", "")}},
    EnablingCase{"NoMachineConfiguration", true, "", {"prog", "-v"}, "1 CLI ?{tool?{v?=<none>}}",
        {enabled("true", "", "\"prog\", \"-v\"")}},
    EnablingCase{"OnlyTheProgram", false, nullptr, {"%s\"\n"}, "1 CLI ?{tool?{}}",
        {enabled("false", "", "\"%s\"\n\"")}},
    EnablingCase{"FilesBeforeTheCommandLine", false, "b.xml",
        {"prog", "-loadConfiguration", "a.xml", "-x", "-y", "3", "z", "-LOADCONFIGURATION", "b.xml"},
        "1 XML_FILE tool?{a?=here} | 2 XML_FILE tool?{b?=config} | 3 CLI ?{tool?{x?=<none> y?=3 z?=<none>}} | "
        "4 XML_FILE tool?{b?=config}",
        {enabled("false", "b.xml", "\"prog\", \"-loadConfiguration\", \"a.xml\", \"-x\", \"-y\", \"3\", \"z\", "
                                   "\"-LOADCONFIGURATION\", \"b.xml\""),
         loaded("succeeded", "a.xml"), loaded("succeeded", "b.xml"), loaded("succeeded", "b.xml")}},
    // A value is passed on, whatever it says; so are words, and flags with more or fewer dashes.
    EnablingCase{"WhatIsNotTheFlag", false, nullptr, {"-loadConfiguration", "loadConfiguration", "-n", "-", "--loadConfiguration"},
        "-1 CLI ?{}", {enabled("false", "", "\"-loadConfiguration\", \"loadConfiguration\", \"-n\", \"-\", \"--loadConfiguration\"")},
        "A command line parameter cannot be empty"},
    EnablingCase{"NoFileAtTheEnd", true, "a.xml", {"prog", "-x", "-loadConfiguration"}, "",
        {enabled("true", "a.xml", "\"prog\", \"-x\", \"-loadConfiguration\"")}, MISSING_VALUE},
    EnablingCase{"NoFileBeforeAFlag", false, nullptr, {"p", "-loadConfiguration", "a.xml", "-loadconfiguration", "-x"},
        "1 XML_FILE tool?{a?=here}",
        {enabled("false", "", "\"p\", \"-loadConfiguration\", \"a.xml\", \"-loadconfiguration\", \"-x\""),
         loaded("succeeded", "a.xml")}, MISSING_VALUE},
    EnablingCase{"AnEmptyFileName", false, nullptr, {"p", "-loadConfiguration", ""}, "",
        {enabled("false", "", "\"p\", \"-loadConfiguration\", \"\"")}, MISSING_VALUE}),
    Label());
// clang-format on

TEST_F(EnablingTest, NamesTheFileAsGivenInTheLogAndAsSoughtInTheException) {
    auto const missing = [](std::string const& path) { return "File \"" + path + "\" was not found"; };
    EXPECT_EQ(whatOf<ConfigurationException>([] { enable(false, "no%s.xml", {"prog"}); }),
              missing(installation.at("config/no%s.xml")));
    EXPECT_EQ(whatOf<ConfigurationException>([] { manager().loadConfigurationFile("./b.xml"); }), missing("./b.xml"));
    ScopedEnvironment const nowhere("KIVO_CONFIG_DIR", installation.at("none"));
    EXPECT_EQ(whatOf<ConfigurationException>([] { manager().loadConfigurationFile("b.xml"); }), missing("b.xml"));
    EXPECT_THAT(records(), ElementsAre(enabled("false", "no%s.xml", "\"prog\""), loaded("failed", "no%s.xml"),
                                       loaded("failed", "./b.xml"), loaded("failed", "b.xml")));
    EXPECT_EQ(providers(), "1 CLI ?{tool?{}}");
}

TEST_F(EnablingTest, AFileThatFailsLeavesItsProviderDisabled) {
    EXPECT_EQ(whatOf<ConfigurationParameterException>([] {
                  enable(true, "a.xml", {"prog", "-loadConfiguration", "bad.xml"});
              }).substr(0, 10),
              "XML ERROR:");
    EXPECT_EQ(providers(), "-1 XML_FILE ?{}");
    EXPECT_EQ(records().back(), loaded("failed", "bad.xml"));
    manager().loadConfigurationFile("b.xml");
    EXPECT_EQ(providers(), "-1 XML_FILE ?{} | 2 XML_FILE tool?{b?=config}");
}

TEST_F(EnablingTest, StartsANewSetAndCountsPrioritiesOn) {
    auto const machine = installation.write("config/machine.config", "<tool m=\"1\"/>");
    createTool("tool{a b m}");
    manager().setApplicationValues(*treeOf("{tool{a=app}}"), 0);
    enable(true, "a.xml", {"prog", "-a", "line", "-b", "line"});
    EXPECT_EQ(providers(), "1 CLI ?{tool?{a?=line b?=line}} | 2 XML_FILE tool?{a?=here} | 3 XML_FILE tool?{m?=1}");
    EXPECT_EQ(records().back(), loaded("succeeded", machine));
    auto const values = manager().getValueGroup("tool", true, 0);
    EXPECT_EQ(toText(*values.getCurrentValueGroup()), "tool{a=line b=line m=1}");

    enable(false, nullptr, {"prog", "-loadConfiguration", "a.xml", "-b", "again"});
    manager().setApplicationValues(*treeOf("{tool{m=app}}"), 0);
    EXPECT_EQ(providers(), "0 APP_VALUES ?{tool?{m?=app}} | 4 XML_FILE tool?{a?=here} | 5 CLI ?{tool?{b?=again}}");
    EXPECT_EQ(toText(*manager().getValueGroup("tool", true, 0).getCurrentValueGroup()), "tool{m=app a=here b=again}");

    manager().reset();
    enable(false, nullptr, {"prog"});
    EXPECT_EQ(providers(), "1 CLI ?{tool?{}}");
}

TEST_F(EnablingTest, SwitchesContextsInScopesThatNestAndEndOnExceptions) {
    manager();
    kvContext before(1, 2);
    kvContext::setCurrentShared(&before);
    kvTrace::start();
    EXPECT_EQ(whatOf([] { enable(false, "none.xml", {}); }).substr(0, 5), "File ");
    EXPECT_THAT(kvTrace::stop(),
                ElementsAre("setCurrentShared(null)", "new kvContext(200, 500)", "setCurrentShared(#1)",
                            "setEnabled(true)", //
                            "setCurrentShared(null)", "new kvContext(200, 500)", "setCurrentShared(#2)",
                            "setEnabled(true)",                                                   //
                            "setCurrentShared(null)", "setCurrentShared(#1)", "delete kvContext", //
                            "setCurrentShared(null)", "setCurrentShared(other)", "delete kvContext"));
    EXPECT_EQ(kvContext::current(nullptr), &before);
    kvContext::setCurrentShared(nullptr);
}

} // namespace

} // namespace kivo::test
