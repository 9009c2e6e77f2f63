#include "kernel/kvExtensionPoint.h"

#include "support/TemporaryInstallation.h"

#include <gmock/gmock.h>
#include <set>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

using namespace kivo::test;

std::string answersOf(kvExtensionPoint& point) {
    std::string answers;
    for (unsigned long i = 0; i < point.getNumberOfPlugins(); ++i) {
        answers.append(static_cast<char const*>(point.getPlugin(i)->createImplementation())).append(" ");
    }
    return answers + (point.getPlugin(point.getNumberOfPlugins()) ? "and more" : "");
}

TEST(kvExtensionPointTest, FindsItsPluginsOnceInTheOrderOfTheirPathsAndSaysWhatItPassesOver) {
    TemporaryInstallation const installation;
    auto const plugins = installation.at("plugins/");
    fs::create_directories(plugins + "a/b");
    fs::create_directory(plugins + "directory.so");
    ASSERT_EQ(mkfifo((plugins + "pipe.so").c_str(), 0600), 0);
    installation.write("plugins/text.so", "text");
    fs::copy_file(PLUGIN_SECOND, plugins + "second.so");
    fs::copy_file(PLUGIN_FIRST,
                  plugins + "a/b/first.so"); // a file counts once however it is reached: so these are copies
    fs::copy_file(PLUGIN_FIRST, plugins + "a/first.so.bak");
    fs::copy_file(PLUGIN_BARE, plugins + "bare.so");
    fs::copy_file(PLUGIN_BORROWING, plugins + "borrowing.so");
    fs::create_symlink("a/b/first.so", plugins + "b.so");
    fs::create_symlink("..", plugins + "a/loop"); // two, so that following them again and again would never end
    fs::create_symlink("..", plugins + "a/b/loop");

    kvExtensionPoint several("KernelTest", true, true);
    EXPECT_EQ(answersOf(several), "first second ");
    fs::copy_file(PLUGIN_FIRST, plugins + "late.so");
    EXPECT_EQ(answersOf(several), "first second ");
    fs::remove(plugins + "late.so");
    kvExtensionPoint single("KernelTest", false, true);
    EXPECT_EQ(answersOf(single), "first ");
    kvExtensionPoint another("Another", true, false);
    EXPECT_EQ(answersOf(another), "");
    ScopedEnvironment const missing("KIVO_PLUGINS_DIR", plugins + "missing");
    EXPECT_EQ(kvExtensionPoint(nullptr, true, true).getNumberOfPlugins(), 0u);

    auto const passedOver = [&](std::string const& file, std::string const& reason) {
        return testing::StartsWith("Plug-in file \"" + plugins + file + "\" passed over: " + reason);
    };
    auto const records = installation.mainLog("Kernel");
    EXPECT_THAT(std::set<std::string>(records.begin(), records.end()),
                testing::ElementsAre("No plug-in for the extension point \"Another\"",
                                     passedOver("bare.so", "no entry point \"extensionPointName\""),
                                     passedOver("borrowing.so", "no entry point \"createPlugin\""),
                                     passedOver("second.so", "the extension point \"KernelTest\" takes one plug-in"),
                                     passedOver("text.so", "")));
}

} // namespace
