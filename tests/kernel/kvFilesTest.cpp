#include "kernel/kvFiles.h"

#include "kernel/kvDirectories.h"
#include "support/TemporaryInstallation.h"

#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

using namespace kivo::test;

TEST(kvFilesTest, TellWhatIsThereAndListDirectoriesInByteOrder) {
    TemporaryDirectory const directory;
    auto const at = [&](std::string const& name) { return directory.at(name); };
    fs::create_directory(at("dir"));
    directory.write("file", "text");
    ASSERT_EQ(mkfifo(at("pipe").c_str(), 0600), 0);
    fs::create_symlink("dir", at("to-dir"));
    fs::create_symlink("no", at("no"));
    std::map<int, std::vector<std::string>> const paths = {
        {0, {"file"}},
        {2, {"missing", "file/below", "no", std::string(300, 'n'), std::string(5000, 'n')}},
        {4, {"", "dir", "dir/", "to-dir"}},
        {8, {"pipe"}},
    };
    for (auto const& [status, pathsOfStatus] : paths) {
        for (auto const& path : pathsOfStatus) {
            EXPECT_EQ(kvLocalExists(at(path).c_str()), status) << path;
        }
    }
    EXPECT_EQ(kvLocalExists(nullptr), 2);

    auto const openDescriptors = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
    auto const before = openDescriptors();
    auto* const listing = kvLocalOpenDir(at("").c_str());
    ASSERT_NE(listing, nullptr);
    EXPECT_EQ(openDescriptors(), before);
    std::string names;
    while (char const* const name = listing->next()) {
        names.append(name).append(" ");
    }
    EXPECT_EQ(names, ". .. dir file no pipe to-dir ");
    listing->close();
    EXPECT_EQ(kvLocalOpenDir(nullptr), nullptr);
    EXPECT_EQ(kvLocalOpenDir(at("file").c_str()), nullptr);

    fs::permissions(at("dir"), fs::perms::none);
    auto const user = geteuid(); // the superuser may look into everything
    ASSERT_TRUE(user != 0 || seteuid(65534) == 0);
    EXPECT_EQ(kvLocalExists(at("dir/hidden").c_str()), 0) << "cannot be told to be missing";
    ASSERT_EQ(seteuid(user), 0);
}

TEST(kvDirectoriesTest, OwnVariableThenHomeThenInstalled) {
    struct {
        bool (*get)(char* buffer, unsigned int size);
        char const *variable, *folder, *installed;
    } const rows[] = {{kvGetEtcDir, "KIVO_ETC_DIR", "home/etc", KIVO_DEFAULT_ETC_DIR},
                      {kvGetPluginsDir, "KIVO_PLUGINS_DIR", "home/plugins", KIVO_DEFAULT_PLUGINS_DIR},
                      {kvGetConfigDir, "KIVO_CONFIG_DIR", "home/config", KIVO_DEFAULT_CONFIG_DIR}};
    for (auto const& row : rows) {
        SCOPED_TRACE(row.variable);
        using Value = std::optional<std::string>;
        auto const get = [&](Value const& own, Value const& home, unsigned int size = 1024) {
            ScopedEnvironment const ownVariable(row.variable, own);
            ScopedEnvironment const homeVariable("KIVO_HOME", home);
            std::string buffer(1024, '#');
            bool const isWritten = row.get(buffer.data(), size);
            EXPECT_NE(isWritten, buffer == std::string(1024, '#'));
            return isWritten ? buffer.c_str() : std::string("none");
        };
        EXPECT_FALSE(row.get(nullptr, 1024));
        TemporaryDirectory const directory;
        auto const home = directory.at("home");
        EXPECT_EQ(get({}, {}), fs::is_directory(row.installed) ? row.installed : "none");
        EXPECT_EQ(get({}, home), "none");
        fs::create_directories(directory.at(row.folder));
        EXPECT_EQ(get({}, home), directory.at(row.folder));
        EXPECT_EQ(get("", home + "/"), directory.at(row.folder)) << "empty is unset";
        EXPECT_EQ(get(directory.at("own"), home), "none") << "a missing directory is not replaced by another";
        EXPECT_EQ(get(directory.write("file", ""), home), "none") << "a file is no directory";
        auto const length = static_cast<unsigned int>(home.size());
        EXPECT_EQ(get(home, {}, length + 1), home);
        EXPECT_EQ(get(home, {}, length), "none");
        EXPECT_EQ(get(home, {}, 0), "none");
    }
}

} // namespace
