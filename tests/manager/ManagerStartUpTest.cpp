#include <configuration/ConfigurationException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterValidator.h>

#include "kernel/standalone/kvTrace.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"

#include <algorithm>
#include <gmock/gmock.h>

#include <unistd.h>

namespace kivo::test {

using namespace configuration;
using testing::ElementsAre;
namespace fs = std::filesystem;

namespace {

constexpr char const* REGISTRY = "<ConfigurationRegistry/>";

class ManagerStartUp : public ManagerTest {
protected:
    /// The registry files that start-up loads, relative to the installation, in their order.
    std::vector<std::string> loadedFiles() {
        manager();
        std::vector<std::string> files;
        for (auto const& record : installation.mainLog("Configuration")) {
            std::string const before = "loadConfigurationRegistryFile: [succeeded]\n [file = \"" + installation.at("");
            EXPECT_EQ(record.substr(0, before.size()), before);
            files.push_back(record.substr(before.size(), record.size() - before.size() - 2));
        }
        return files;
    }

    void install(char const* plugin, std::string const& name) const {
        fs::copy_file(plugin, installation.at("plugins/" + name));
    }
};

TEST_F(ManagerStartUp, LoadsTheMainRegistryFirstAndTheOthersInTheOrderOfTheirPaths) {
    fs::remove(installation.at("etc/kivobase.crg"));
    for (char const* file :
         {"etc/b.crg", "etc/A.crg", "etc/c.CRG", "etc/d.crg.bak", "etc/.crg", "etc/sub/e.crg",
          "plugins/x/y/Kivobase.crg", "plugins/x/f.crg", "plugins/W/g.crg", "plugins/kivobase.crg.d/h.crg"}) {
        installation.write(file, REGISTRY);
    }
    EXPECT_THAT(loadedFiles(), ElementsAre("plugins/x/y/Kivobase.crg", "etc/.crg", "etc/A.crg", "etc/b.crg",
                                           "plugins/kivobase.crg.d/h.crg", "plugins/W/g.crg", "plugins/x/f.crg"));
}

TEST_F(ManagerStartUp, LoadsAFurtherMainRegistryLikeAnyOther) {
    installation.write("plugins/KIVOBASE.crg", REGISTRY);
    installation.write("etc/a.crg", REGISTRY);
    EXPECT_THAT(loadedFiles(), ElementsAre("etc/kivobase.crg", "etc/a.crg", "plugins/KIVOBASE.crg"));
}

TEST_F(ManagerStartUp, EntersNoDirectoryTwiceAndPassesOverWhatItCannotList) {
    installation.write("plugins/a/b/c.crg", REGISTRY);
    fs::create_directory_symlink("..", installation.at("plugins/a/up"));
    fs::create_directory_symlink("../..", installation.at("plugins/a/b/up"));
    fs::create_directory_symlink(".", installation.at("plugins/self"));
    installation.write("plugins/closed/d.crg", REGISTRY);
    fs::permissions(installation.at("plugins/closed"), fs::perms::none);
    auto files = loadedFiles();
    fs::permissions(installation.at("plugins/closed"), fs::perms::owner_all);
    if (geteuid() == 0) {
        files.erase(std::remove(files.begin(), files.end(), "plugins/closed/d.crg"), files.end()); // root lists all
    }
    EXPECT_THAT(files, ElementsAre("etc/kivobase.crg", "plugins/a/b/c.crg"));
}

TEST_F(ManagerStartUp, NeedsTheMainRegistryAndNoDirectory) {
    auto const what = [] {
        Manager::shutdown();
        return whatOf<ConfigurationException>([] { Manager::getInstance(); });
    };
    installation.write("plugins/kivobase.crg", REGISTRY);
    fs::remove_all(installation.at("etc"));
    EXPECT_EQ(what(), "<nothing>");
    fs::remove_all(installation.at("plugins"));
    EXPECT_EQ(what(), "Unable to find the kivobase.crg file.");
    installation.write("etc/kivobase.CRG", REGISTRY);
    installation.write("etc/xkivobase.crg", REGISTRY);
    EXPECT_EQ(what(), "Unable to find the kivobase.crg file.");
}

TEST_F(ManagerStartUp, StopsAtARegistryThatFailsAndKeepsWhatWasLoaded) {
    installation.write("etc/a.crg", "<ConfigurationRegistry><Enumerations><Enumeration id=\"e\"/></Enumerations>"
                                    "</ConfigurationRegistry>");
    installation.write("etc/b.crg", "<Other/>");
    installation.write("etc/c.crg", REGISTRY);
    auto const text = "Expected \"ConfigurationRegistry\" tag but found \"Other\"";
    EXPECT_EQ(whatOf<ConfigurationException>([] { Manager::getInstance(); }), text);
    EXPECT_NE(manager().getEnumDefinition("E"), nullptr);
    auto const log = installation.mainLog("Configuration");
    ASSERT_EQ(log.size(), 3u);
    EXPECT_EQ(log.back(), "loadConfigurationRegistryFile: [failed]\n [file = \"" + installation.at("etc/b.crg") +
                              "\"]\n [error = \"" + text + "\"]");
}

TEST_F(ManagerStartUp, SwitchesContextsForValidatorsAndForTheRegistry) {
    kvTrace::start();
    manager();
    std::vector<std::string> expected;
    for (std::string const context : {"#1", "#2"}) {
        expected.insert(expected.end(),
                        {"setCurrentShared(null)", "new kvContext(200, 500)", "setCurrentShared(" + context + ")",
                         "setEnabled(true)", "setCurrentShared(null)", "setCurrentShared(null)", "delete kvContext"});
    }
    EXPECT_EQ(kvTrace::stop(), expected);
}

TEST_F(ManagerStartUp, RegistersTheValidatorsOfPlugins) {
    install(PLUGIN_NONE, "a.so");
    install(PLUGIN_GOOD, "b.so");
    EXPECT_EQ(manager().getNumberofValidators(), 2u);
    auto const* validator = manager().getValidator("FROMPLUGIN");
    ASSERT_NE(validator, nullptr);
    std::unique_ptr<char[]> const message(validator->validate("100%"));
    EXPECT_STREQ(message.get(), "100% is never right");
    // The plug-in asked for the manager while that was being made, and got it.
    EXPECT_NE(manager().getEnumDefinition("registered by the plug-in"), nullptr);

    manager().reset();
    EXPECT_EQ(manager().getNumberofValidators(), 2u);
    EXPECT_NE(manager().getEnumDefinition("registered by the plug-in"), nullptr);
}

TEST_F(ManagerStartUp, ReportsAPluginsNameThatIsTakenWhenItIsLookedUp) {
    install(PLUGIN_DUPLICATE, "a.so");
    EXPECT_EQ(manager().getNumberofValidators(), 2u);
    EXPECT_EQ(whatOf<ConfigurationException>([] { manager().getValidator("storageLocation"); }),
              "Duplicate validator \"storageLocation\"");
}

} // namespace

} // namespace kivo::test
