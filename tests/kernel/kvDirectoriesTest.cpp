#include "kernel/kvDirectories.h"

#include "KernelTest.h"

#include <ostream>

namespace {

struct Directory {
    char const* label;
    bool (*get)(char*, unsigned int);
    char const* variable;
    char const* folder;
    char const* installed;
};

void PrintTo(Directory const& directory, std::ostream* out) { *out << directory.variable; }

class kvDirectoriesTest : public KernelTest, public testing::WithParamInterface<Directory> {
protected:
    static std::string get() {
        std::string buffer(1024, '#');
        return GetParam().get(buffer.data(), 1024) ? buffer.c_str() : "none";
    }
    static void set(char const* variable, std::string const& value) { setenv(variable, value.c_str(), 1); }
};

TEST_P(kvDirectoriesTest, OwnVariableThenHomeThenInstalled) {
    std::string const folder = GetParam().folder;
    EXPECT_EQ(get(), std::filesystem::is_directory(GetParam().installed) ? GetParam().installed : "none");

    set("KIVO_HOME", at("home"));
    EXPECT_EQ(get(), "none") << "the home has no such folder";
    std::filesystem::create_directories(at("home/" + folder));
    EXPECT_EQ(get(), at("home/" + folder));
    set("KIVO_HOME", at("home/"));
    EXPECT_EQ(get(), at("home/" + folder));

    set(GetParam().variable, "");
    EXPECT_EQ(get(), at("home/" + folder)) << "empty is unset";
    set(GetParam().variable, at("own"));
    EXPECT_EQ(get(), "none") << "a missing directory is not replaced by another";
    writeFile("own");
    EXPECT_EQ(get(), "none") << "a file is no directory";
    set(GetParam().variable, at("home"));
    EXPECT_EQ(get(), at("home")) << "asked anew at each call";
}

TEST_P(kvDirectoriesTest, LeavesTheBufferAloneUnlessThePathFits) {
    std::string const path = at("home");
    std::filesystem::create_directory(path);
    set(GetParam().variable, path);

    auto const length = static_cast<unsigned int>(path.size());
    std::string const untouched(length + 2, '#');
    std::string buffer = untouched;
    EXPECT_FALSE(GetParam().get(buffer.data(), 0));
    EXPECT_FALSE(GetParam().get(buffer.data(), length));
    EXPECT_FALSE(GetParam().get(nullptr, 1024));
    EXPECT_EQ(buffer, untouched);
    EXPECT_TRUE(GetParam().get(buffer.data(), length + 1));
    EXPECT_EQ(buffer, path + '\0' + '#');
}

INSTANTIATE_TEST_SUITE_P(
    Kernel, kvDirectoriesTest,
    testing::Values(Directory{"Etc", kvGetEtcDir, "KIVO_ETC_DIR", "etc", KIVO_DEFAULT_ETC_DIR},
                    Directory{"Plugins", kvGetPluginsDir, "KIVO_PLUGINS_DIR", "plugins", KIVO_DEFAULT_PLUGINS_DIR},
                    Directory{"Config", kvGetConfigDir, "KIVO_CONFIG_DIR", "config", KIVO_DEFAULT_CONFIG_DIR}),
    [](auto const& row) { return std::string(row.param.label); });

TEST(kvDirSeparatorTest, IsTheSlash) {
    EXPECT_EQ(kvGetDirSeparatorChar(nullptr), '/');
    EXPECT_EQ(kvGetDirSeparatorChar("a\\b"), '/');
}

} // namespace
