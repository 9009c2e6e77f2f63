#include "kernel/kvFiles.h"

#include "kernel/FailingSystemCall.h"
#include "kernel/kvDirectories.h"
#include "support/TemporaryInstallation.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

using namespace kivo::test;

struct kvFilesTest : testing::Test {
    /// The main log's record of a fault, with the path in the installation.
    std::string record(std::string const& kind, std::string const& path, std::string const& fault) const {
        return kind + " \"" + installation.at(path) + "\" " + fault;
    }
    TemporaryInstallation const installation;
};

TEST_F(kvFilesTest, TellWhatIsThere) {
    installation.write("file", "text");
    ASSERT_EQ(mkfifo(installation.at("pipe").c_str(), 0600), 0);
    fs::create_symlink("etc", installation.at("to-etc"));
    fs::create_symlink("circle", installation.at("circle"));
    auto const expect = [&](int status, std::vector<std::string> const& paths) {
        for (auto const& path : paths) {
            EXPECT_EQ(kvLocalExists(installation.at(path).c_str()), status) << path;
        }
    };
    expect(0, {"file"});
    expect(KV_FILE_MISSING, {"missing", "file/below", "circle", std::string(300, 'n'), std::string(5000, 'n')});
    expect(KV_FILE_DIRECTORY, {"", "etc", "etc/", "to-etc"});
    expect(KV_FILE_SPECIAL, {"pipe"});
    EXPECT_EQ(kvLocalExists(nullptr), KV_FILE_MISSING);
}

TEST_F(kvFilesTest, ListDirectoriesInByteOrderWithoutDeadLinks) {
    for (char const* file : {"etc/b", "etc/B", "etc/a"}) {
        installation.write(file, "");
    }
    fs::create_symlink("a", installation.at("etc/to-a"));
    fs::create_symlink("user@host.1", installation.at("etc/.#a"));
    fs::create_symlink("circle", installation.at("etc/circle"));
    auto const openDescriptors = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
    auto const before = openDescriptors();
    kvDirListingPointer const listing(kvLocalOpenDir(installation.at("etc").c_str()));
    EXPECT_EQ(openDescriptors(), before);
    std::string names;
    while (char const* const name = listing->next()) {
        names.append(name).append(" ");
    }
    EXPECT_EQ(names, ". .. B a b kivobase.crg to-a ");
    std::string const fault = "is left out, since it leads nowhere: ";
    EXPECT_THAT(
        installation.mainLog("Kernel"),
        testing::UnorderedElementsAre(record("Link", "etc/.#a", fault + "No such file or directory"),
                                      record("Link", "etc/circle", fault + "Too many levels of symbolic links")));
}

TEST_F(kvFilesTest, SayWhyADirectoryCannotBeReadOrExamined) {
    EXPECT_EQ(kvLocalOpenDir(nullptr), nullptr);
    EXPECT_EQ(kvLocalOpenDir(installation.at("missing").c_str()), nullptr);
    auto const cannotRead = [this] {
        bool const isSet = failSystemCall(SYS_getdents64, EIO);
        _exit(isSet && kvLocalOpenDir(installation.at("etc").c_str()) ? 1 : 0);
    };
    EXPECT_EXIT(cannotRead(), testing::ExitedWithCode(0), "");
    fs::permissions(installation.at(""), fs::perms(0755));
    fs::permissions(installation.at("main.log"), fs::perms(0666));
    fs::permissions(installation.at("plugins"), fs::perms::none);
    auto const user = geteuid(); // the superuser may look into everything
    ASSERT_TRUE(user != 0 || seteuid(65534) == 0);
    EXPECT_EQ(kvLocalExists(installation.at("plugins/hidden").c_str()), 0) << "cannot be told to be missing";
    ASSERT_EQ(seteuid(user), 0);
    EXPECT_THAT(installation.mainLog("Kernel"),
                testing::ElementsAre(record("Directory", "missing", "cannot be read: No such file or directory"),
                                     record("Directory", "etc", "cannot be read: Input/output error"),
                                     record("File", "plugins/hidden", "cannot be examined: Permission denied")));
}

TEST(kvDirectoriesTest, OwnVariableThenHomeThenInstalled) {
    struct {
        bool (*get)(char* buffer, unsigned int size);
        char const *variable, *folder, *installed;
    } const rows[] = {{kvGetEtcDir, "KIVO_ETC_DIR", "etc", KIVO_DEFAULT_ETC_DIR},
                      {kvGetPluginsDir, "KIVO_PLUGINS_DIR", "plugins", KIVO_DEFAULT_PLUGINS_DIR},
                      {kvGetConfigDir, "KIVO_CONFIG_DIR", "config", KIVO_DEFAULT_CONFIG_DIR}};
    using Value = std::optional<std::string>;
    TemporaryInstallation const installation;
    auto const home = installation.at("");
    auto const file = installation.write("file", "");
    for (auto const& row : rows) {
        SCOPED_TRACE(row.variable);
        auto const get = [&](Value const& own, Value const& homeValue, std::size_t size = 1024) {
            ScopedEnvironment const ownVariable(row.variable, own);
            ScopedEnvironment const homeVariable("KIVO_HOME", homeValue);
            char buffer[1024] = "unchanged";
            bool const exists = row.get(buffer, static_cast<unsigned int>(size));
            return (exists ? "" : "none: ") + std::string(buffer);
        };
        EXPECT_EQ(get({}, {}), (fs::is_directory(row.installed) ? "" : "none: ") + std::string(row.installed));
        EXPECT_EQ(get("", home), home + row.folder) << "empty is unset";
        EXPECT_EQ(get({}, home + "etc"), "none: " + home + "etc/" + row.folder);
        EXPECT_EQ(get(file, home), "none: " + file) << "a file is no directory, and is not replaced by another";
        EXPECT_EQ(get(home, {}, home.size() + 1), home);
        EXPECT_EQ(get(home, {}, home.size()), "none: unchanged");
        EXPECT_FALSE(row.get(nullptr, 1024));
    }
}

} // namespace
