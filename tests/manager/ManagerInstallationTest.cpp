#include <configuration/ConfigurationException.h>
#include <configuration/ConfigurationParameterException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterValidator.h>
#include <configuration/Specification.h>
#include <configuration/ValueProvider.h>

#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"

#include <gmock/gmock.h>

namespace kivo::test {

using namespace configuration;
namespace fs = std::filesystem;

namespace {

constexpr char const* REGISTRY = "<ConfigurationRegistry/>";

class ManagerStartUp : public ManagerTest {
protected:
    /// The registry files that start-up loads, relative to the installation, in their order.
    std::string loadedFiles() {
        Manager::shutdown();
        fs::remove(installation.at("main.log"));
        manager();
        std::string files;
        for (auto const& record : installation.mainLog("Configuration")) {
            auto const start = record.find(installation.at("")) + installation.at("").size();
            files += record.substr(start, record.size() - start - 2) + " ";
        }
        return files;
    }
};

TEST_F(ManagerStartUp, LoadsTheMainRegistryFirstAndTheOthersInTheOrderOfTheirPaths) {
    fs::remove(installation.at("etc/kivobase.crg"));
    for (char const* file : {"etc/b.crg", "etc/A.crg", "etc/c.CRG", "etc/d.crg.bak", "etc/.crg", "etc/sub/e.crg",
                             "plugins/x/y/Kivobase.crg", "plugins/W/g.crg", "plugins/kivobase.crg.d/h.crg"}) {
        installation.write(file, REGISTRY);
    }
    fs::create_symlink("user@host.1:2", installation.at("etc/.#b.crg")); // as an editor locks a file
    fs::create_directory_symlink("..", installation.at("plugins/x/up"));
    fs::create_directory_symlink("../..", installation.at("plugins/x/y/up"));
    std::string const others = "etc/.crg etc/A.crg etc/b.crg plugins/kivobase.crg.d/h.crg plugins/W/g.crg ";
    EXPECT_EQ(loadedFiles(), "plugins/x/y/Kivobase.crg " + others);
    installation.write("etc/kivobase.crg", REGISTRY);
    EXPECT_EQ(loadedFiles(), "etc/kivobase.crg " + others + "plugins/x/y/Kivobase.crg ");
}

TEST_F(ManagerStartUp, KeepsTheInstanceAndWhatWasLoadedWhenLoadingThrows) {
    constexpr char const* MISSING = "Unable to find the kivobase.crg file.";
    fs::remove_all(installation.at("etc"));
    fs::remove_all(installation.at("plugins"));
    EXPECT_EQ(whatOf<ConfigurationException>([] { Manager::getInstance(); }), MISSING);
    EXPECT_EQ(installation.mainLog("Kernel").at(0),
              "Unable to find the kivobase.crg file in these directories:\n [etc = \"" + installation.at("etc") +
                  "\", no such directory]\n [plug-ins, and all below = \"" + installation.at("plugins") +
                  "\", no such directory]");
    auto* const instance = Manager::getInstance();
    EXPECT_EQ(instance->getNumberofValidators(), 1u);
    installation.write("etc/kivobase.CRG", REGISTRY);
    installation.write("etc/xkivobase.crg", REGISTRY);
    EXPECT_EQ(whatOf<ConfigurationException>([&] { instance->reset(); }), MISSING);
    installation.write("plugins/a.crg", "<Other/>");
    installation.write("plugins/b.crg", REGISTRY);
    installation.write("plugins/kivobase.crg", "<ConfigurationRegistry><Enumerations><Enumeration id='e'/>"
                                               "</Enumerations></ConfigurationRegistry>");
    EXPECT_EQ(whatOf<ConfigurationException>([&] { instance->loadDefaultConfigurationRegistry(); }),
              "Expected \"ConfigurationRegistry\" tag but found \"Other\"");
    EXPECT_EQ(installation.mainLog("Configuration").size(), 3u);
    EXPECT_EQ(Manager::getInstance(), instance);
    EXPECT_NE(instance->getEnumDefinition("E"), nullptr);
}

TEST_F(ManagerStartUp, RegistersTheValidatorsOfPlugins) {
    fs::copy_file(PLUGIN_NONE, installation.at("plugins/a.so"));
    fs::copy_file(PLUGIN_GOOD, installation.at("plugins/b.so"));
    for (int round = 0; round < 2; ++round, manager().reset()) {
        EXPECT_EQ(manager().getNumberofValidators(), 2u);
        std::unique_ptr<char[]> const message(manager().getValidator("FROMPLUGIN")->validate("100%"));
        EXPECT_STREQ(message.get(), "100% is never right");
        // The plug-in asked for the manager while that was being made, and got it.
        EXPECT_NE(manager().getEnumDefinition("fromPlugin"), nullptr);
    }
    manager().registerDefaultValidators();
    for (std::string const name : {"storageLocation", "fromPlugin"}) {
        EXPECT_EQ(whatOf<ConfigurationException>([&] { manager().getValidator(name.c_str()); }),
                  "Duplicate validator \"" + name + "\"");
    }
}

using Arguments = std::vector<char const*>;

/// The values files of the tests, which all stand for "tool", are in the configuration directory, and one elsewhere.
class EnablingTest : public ManagerTest {
protected:
    EnablingTest() {
        installation.write("config/a.xml", "<tool a=\"config\"/>");
        installation.write("config/b.xml", "<tool b=\"config\"/>");
        installation.write("here/a.xml", "<tool a=\"here\"/>");
        fs::current_path(installation.at("here"));
        createTool("tool{a b m}");
    }
    ~EnablingTest() override { fs::current_path(mBefore); }

    static void enable(bool allowMachineConfig, char const* file, Arguments const& arguments) {
        manager().enableConfiguration(allowMachineConfig, file, static_cast<unsigned int>(arguments.size()),
                                      arguments.data());
    }

    /// Priority, name and values of each provider, "-" before those that are not enabled.
    static std::string providers() {
        std::string text;
        for (unsigned long i = 0; i < manager().getNumberOfProviders(); ++i) {
            auto& provider = *manager().getProvider(i);
            if (ParameterValueGroup result(nullptr); provider.getEnabled()) {
                provider.getValues(manager().getSpecification("tool"), result, 0); // makes a command line parse itself
            }
            text += (i > 0 ? " | " : "") + std::string(provider.getEnabled() ? "" : "-") +
                    std::to_string(provider.getPriority()) + " " + provider.getName() + " " +
                    toText(provider.getDataCache());
        }
        return text;
    }

private:
    fs::path mBefore = fs::current_path();
};

TEST_F(EnablingTest, SetsProvidersUp) {
    struct Row {
        char const* label;
        Arguments arguments;
        char const* providers;
        char const* thrown = "<nothing>";
    };
    constexpr char const* missing = "Missing value for the -loadConfiguration parameter";
    // clang-format off
    for (auto const& row : {
        Row{"no arguments", {}, "1 XML_FILE tool?{b?=config}"},
        Row{"only the program", {"tool"}, "1 CLI ?{tool?{}} | 2 XML_FILE tool?{b?=config}"},
        Row{"files before the command line",
            {"prog", "-loadConfiguration", "a.xml", "-x", "-y", "3", "z", "-LOADCONFIGURATION", "b.xml"},
            "1 XML_FILE tool?{a?=here} | 2 XML_FILE tool?{b?=config} | 3 CLI ?{tool?{x?=<none> y?=3 z?=<none>}} | "
            "4 XML_FILE tool?{b?=config}"},
        // A value is passed on, whatever it says; so are words, and flags with more or fewer dashes.
        Row{"what is not the flag", {"-loadConfiguration", "loadConfiguration", "-n", "-", "--loadConfiguration"},
            "-1 CLI ?{}", "A command line parameter cannot be empty"},
        Row{"no file at the end", {"prog", "-x", "-loadConfiguration"}, "", missing},
        Row{"no file before a flag", {"p", "-loadConfiguration", "a.xml", "-loadconfiguration", "-x"},
            "1 XML_FILE tool?{a?=here}", missing},
        Row{"an empty file name", {"p", "-loadConfiguration", ""}, "", missing}}) {
        SCOPED_TRACE(row.label);
        manager().reset(); // counts from 1 again
        createTool("tool{a b m}");
        EXPECT_EQ(whatOf<ConfigurationException>([&] { enable(false, "b.xml", row.arguments); }), row.thrown);
        EXPECT_EQ(providers(), row.providers);
    }
    // clang-format on
}

TEST_F(EnablingTest, NamesTheFileAsGivenInTheLogAndAsSoughtInTheException) {
    auto const missing = [](std::string const& path) { return "File \"" + path + "\" was not found"; };
    EXPECT_EQ(whatOf<ConfigurationException>([] {
                  enable(true, "no%s.xml", {"%s\"\n", "-v"});
              }),
              missing(installation.at("config/no%s.xml")));
    EXPECT_EQ(whatOf<ConfigurationException>([] { manager().loadConfigurationFile("./b.xml"); }), missing("./b.xml"));
    ScopedEnvironment const nowhere("KIVO_CONFIG_DIR", installation.at("none"));
    EXPECT_EQ(whatOf<ConfigurationException>([] { manager().loadConfigurationFile("b.xml"); }), missing("b.xml"));
    enable(true, nullptr, {});
    EXPECT_THAT(installation.mainLog("Configuration"),
                testing::ElementsAre(testing::_,
                                     "enableConfiguration:\n [allow machine config = true]\n"
                                     " [application config file = \"no%s.xml\"]\n [command line = \"%s\"\n\", \"-v\"]",
                                     "loadConfigurationFile: [failed]\n [file = \"no%s.xml\"]",
                                     "loadConfigurationFile: [failed]\n [file = \"./b.xml\"]",
                                     "loadConfigurationFile: [failed]\n [file = \"b.xml\"]",
                                     "enableConfiguration:\n [allow machine config = true]\n"
                                     " [application config file = \"\"]\n [command line = ]"));
}

TEST_F(EnablingTest, StartsANewSetAndCountsPrioritiesOn) {
    auto const machine = installation.write("config/machine.config", "<tool m=\"1\"/>");
    manager().setApplicationValues(*treeOf("{tool{a=app}}"), 0);
    enable(true, "a.xml", {"prog", "-a", "line", "-b", "line"});
    EXPECT_EQ(providers(), "1 CLI ?{tool?{a?=line b?=line}} | 2 XML_FILE tool?{a?=here} | 3 XML_FILE tool?{m?=1}");
    EXPECT_EQ(installation.mainLog("Configuration").back(),
              "loadConfigurationFile: [succeeded]\n [file = \"" + machine + "\"]");
    auto const bad = installation.write("bad.xml", "<tool");
    EXPECT_EQ(whatOf<ConfigurationParameterException>([&] { enable(true, bad.c_str(), {}); }).substr(0, 10),
              "XML ERROR:");
    manager().loadConfigurationFile("b.xml");
    EXPECT_EQ(providers(), "-4 XML_FILE ?{} | 5 XML_FILE tool?{b?=config}");
    manager().reset();
    enable(false, nullptr, {"-"});
    EXPECT_EQ(manager().getProvider(0)->getPriority(), 1);
}

} // namespace

} // namespace kivo::test
