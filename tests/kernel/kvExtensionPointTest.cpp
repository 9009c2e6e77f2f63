#include "kernel/kvExtensionPoint.h"

#include "KernelTest.h"
#include "kernel/kvMemory.h"

#include <new>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

class kvExtensionPointTest : public KernelTest {
protected:
    kvExtensionPointTest() {
        fs::create_directories(at("plugins/a/b"));
        setenv("KIVO_PLUGINS_DIR", at("plugins").c_str(), 1);
        logTo(mLog);
    }

    // A copy, since a file counts once however it is reached.
    void install(char const* plugin, std::string const& name) const { fs::copy_file(plugin, at("plugins/" + name)); }

    static std::string answersOf(kvExtensionPoint& point) {
        std::string answers;
        for (unsigned long i = 0; i < point.getNumberOfPlugins(); ++i) {
            answers += std::string(i == 0 ? "" : " ") + static_cast<char*>(point.getPlugin(i)->createImplementation());
        }
        return answers;
    }

    std::string passedOver(std::string const& name, std::string const& reason) const {
        return "Kernel|Plug-in file \"" + at("plugins/" + name) + "\" passed over: " + reason;
    }

    std::string const mLog = at("log");
};

TEST_F(kvExtensionPointTest, FindsItsPluginsInTheOrderOfTheirPaths) {
    install(PLUGIN_SECOND, "second.so");
    install(PLUGIN_FIRST, "a/b/first.so");
    install(PLUGIN_FIRST, "a/first.so.bak");
    install(PLUGIN_FOREIGN, "foreign.so");
    fs::create_symlink("a/b/first.so", at("plugins/z.so"));
    fs::create_symlink("..", at("plugins/a/loop")); // two, so that following them again and again would never end
    fs::create_symlink("..", at("plugins/a/b/loop"));
    fs::create_symlink("a/b", at("plugins/to-b"));
    fs::create_symlink("nowhere", at("plugins/dangling.so"));
    fs::create_directory(at("plugins/directory.so"));
    ASSERT_EQ(mkfifo(at("plugins/pipe.so").c_str(), 0600), 0);

    kvExtensionPoint point("KernelTest", true, true);
    EXPECT_EQ(answersOf(point), "first second");
    EXPECT_EQ(point.getPlugin(2), nullptr);
    EXPECT_FALSE(fs::exists(mLog)) << contentOf(mLog);
}

TEST_F(kvExtensionPointTest, PassesOverWhatIsNoPluginAndSaysWhy) {
    install(PLUGIN_BARE, "bare.so");
    install(PLUGIN_BORROWING, "borrowing.so");
    install(PLUGIN_SECOND, "second.so");
    writeFile("plugins/text.so");

    kvExtensionPoint point("KernelTest", true, true);
    EXPECT_EQ(answersOf(point), "second");
    std::vector<std::string> const records = recordsOf(mLog);
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0], passedOver("bare.so", "no entry point \"extensionPointName\""));
    EXPECT_EQ(records[1], passedOver("borrowing.so", "no entry point \"createPlugin\""));
    EXPECT_TRUE(records[2].starts_with(passedOver("text.so", ""))) << records[2];
}

TEST_F(kvExtensionPointTest, SearchesOnceWhenFirstAsked) {
    kvExtensionPoint point("KernelTest", true, true);
    install(PLUGIN_SECOND, "second.so");
    EXPECT_EQ(point.getNumberOfPlugins(), 1u);
    install(PLUGIN_FIRST, "first.so");
    EXPECT_EQ(answersOf(point), "second");
}

TEST_F(kvExtensionPointTest, ReportsTooManyAndTooFewPlugins) {
    install(PLUGIN_FIRST, "1.so");
    install(PLUGIN_SECOND, "2.so");
    kvExtensionPoint single("KernelTest", false, true);
    EXPECT_EQ(answersOf(single), "first");
    kvExtensionPoint mandatory("Nobody's", true, false);
    EXPECT_EQ(mandatory.getPlugin(0), nullptr);
    setenv("KIVO_PLUGINS_DIR", at("missing").c_str(), 1);
    kvExtensionPoint nameless(nullptr, true, true);
    EXPECT_EQ(nameless.getNumberOfPlugins(), 0u);
    EXPECT_EQ(recordsOf(mLog),
              (std::vector<std::string>{passedOver("2.so", "the extension point \"KernelTest\" takes one plug-in"),
                                        "Kernel|No plug-in for the extension point \"Nobody's\""}));
}

TEST_F(kvExtensionPointTest, LivesInKernelMemory) {
    install(PLUGIN_SECOND, "second.so");
    void* const memory = kvsMalloc(sizeof(kvExtensionPoint));
    ASSERT_NE(memory, nullptr);
    auto* const point = new (memory) kvExtensionPoint("KernelTest", true, true);
    EXPECT_EQ(answersOf(*point), "second");
    point->~kvExtensionPoint();
    kvsFree(memory);
    kvsFree(nullptr);
}

} // namespace
