#include "kernel/kvExtensionPoint.h"

#include "support/TemporaryInstallation.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

using namespace kivo::test;

class kvExtensionPointTest : public testing::Test {
protected:
    static std::string answersOf(kvExtensionPoint& point) {
        std::string answers;
        for (unsigned long i = 0; i < point.getNumberOfPlugins(); ++i) {
            answers.append(static_cast<char const*>(point.getPlugin(i)->createImplementation())).append(" ");
        }
        return answers;
    }

    std::string passedOver(std::string const& name, std::string const& reason) const {
        return "Plug-in file \"" + plugins + name + "\" passed over: " + reason;
    }

    TemporaryInstallation const installation;
    std::string const plugins = installation.at("plugins/");
};

// Files are copies, since one counts once however it is reached.

TEST_F(kvExtensionPointTest, FindsItsPluginsOnceInTheOrderOfTheirPaths) {
    kvExtensionPoint point("KernelTest", true, true);
    fs::create_directories(plugins + "a/b");
    fs::create_directory(plugins + "directory.so");
    ASSERT_EQ(mkfifo((plugins + "pipe.so").c_str(), 0600), 0);
    fs::copy_file(PLUGIN_SECOND, plugins + "second.so");
    fs::copy_file(PLUGIN_FIRST, plugins + "a/b/first.so");
    fs::copy_file(PLUGIN_FIRST, plugins + "a/first.so.bak");
    fs::copy_file(PLUGIN_FOREIGN, plugins + "foreign.so");
    fs::create_symlink("a/b/first.so", plugins + "z.so");
    fs::create_symlink("..", plugins + "a/loop"); // two, so that following them again and again would never end
    fs::create_symlink("..", plugins + "a/b/loop");
    fs::create_symlink("nowhere", plugins + "dangling.so");
    EXPECT_EQ(answersOf(point), "first second ");
    EXPECT_EQ(point.getPlugin(2), nullptr);
    fs::copy_file(PLUGIN_FIRST, plugins + "late.so");
    EXPECT_EQ(answersOf(point), "first second ");
    EXPECT_THAT(installation.mainLog("Kernel"), testing::ElementsAre(testing::HasSubstr("/dangling.so\"")));
}

TEST_F(kvExtensionPointTest, SaysWhatItPassesOverAndWhatItLacks) {
    fs::copy_file(PLUGIN_BARE, plugins + "bare.so");
    fs::copy_file(PLUGIN_BORROWING, plugins + "borrowing.so");
    fs::copy_file(PLUGIN_FIRST, plugins + "first.so");
    fs::copy_file(PLUGIN_SECOND, plugins + "second.so");
    installation.write("plugins/text.so", "text");
    kvExtensionPoint single("KernelTest", false, true);
    EXPECT_EQ(answersOf(single), "first ");
    ScopedEnvironment const missing("KIVO_PLUGINS_DIR", plugins + "missing");
    EXPECT_EQ(kvExtensionPoint(nullptr, true, true).getNumberOfPlugins(), 0u);
    EXPECT_EQ(kvExtensionPoint("Nobody's", true, false).getPlugin(0), nullptr);
    EXPECT_THAT(installation.mainLog("Kernel"),
                testing::ElementsAre(passedOver("bare.so", "no entry point \"extensionPointName\""),
                                     passedOver("borrowing.so", "no entry point \"createPlugin\""),
                                     passedOver("second.so", "the extension point \"KernelTest\" takes one plug-in"),
                                     testing::StartsWith(passedOver("text.so", "")),
                                     "No plug-in for the extension point \"Nobody's\""));
}

} // namespace
