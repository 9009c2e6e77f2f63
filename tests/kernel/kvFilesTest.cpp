#include "kernel/kvFiles.h"

#include "KernelTest.h"

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

// Without the right to look below a directory of mode 0, which the superuser has.
class OrdinaryUser {
public:
    OrdinaryUser() { EXPECT_TRUE(mUser != 0 || seteuid(65534) == 0); }
    ~OrdinaryUser() { EXPECT_EQ(seteuid(mUser), 0); }

private:
    uid_t mUser = geteuid();
};

class kvFilesTest : public KernelTest {
protected:
    kvFilesTest() {
        fs::create_directory(at("dir"));
        writeFile("file");
        EXPECT_EQ(mkfifo(at("pipe").c_str(), 0600), 0);
        fs::create_symlink("file", at("to-file"));
        fs::create_symlink("dir", at("to-dir"));
        fs::create_symlink("nowhere", at("dangling"));
        fs::create_symlink("circle", at("circle"));
    }
};

TEST_F(kvFilesTest, ExistsTellsWhatIsThere) {
    struct Row {
        std::string path;
        int status;
    };
    for (Row const& row : {Row{"file", 0},
                           {"to-file", 0},
                           {"dir", 4},
                           {"dir/", 4},
                           {"to-dir", 4},
                           {"pipe", 8},
                           {"missing", 2},
                           {"file/below", 2},
                           {"dangling", 2},
                           {"circle", 2},
                           {std::string(5000, 'n'), 2},
                           {std::string(300, 'n'), 2}}) {
        EXPECT_EQ(kvLocalExists(at(row.path).c_str()), row.status) << row.path;
    }
    EXPECT_EQ(kvLocalExists(nullptr), 2);
    EXPECT_EQ(kvLocalExists(""), 2);
    EXPECT_EQ(kvLocalExists("/dev/null"), 8);

    fs::permissions(at("dir"), fs::perms::none);
    OrdinaryUser const user;
    EXPECT_EQ(kvLocalExists(at("dir/hidden").c_str()), 0) << "cannot be told to be missing";
}

TEST_F(kvFilesTest, ListsNamesInByteOrderAndHoldsNoDescriptor) {
    auto const openDescriptors = [] {
        return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    };
    auto const before = openDescriptors();
    kvDirListing* const listing = kvLocalOpenDir(at("").c_str());
    ASSERT_NE(listing, nullptr);
    EXPECT_EQ(openDescriptors(), before);

    std::string names;
    while (char const* const name = listing->next()) {
        names += std::string(names.empty() ? "" : " ") + name;
    }
    EXPECT_EQ(names, ". .. circle dangling dir file pipe to-dir to-file");
    EXPECT_EQ(listing->next(), nullptr);
    listing->close();
}

TEST_F(kvFilesTest, ListsDirectoriesOnly) {
    EXPECT_EQ(kvLocalOpenDir(nullptr), nullptr);
    for (char const* const name : {"missing", "file", "pipe", "dangling", "circle"}) {
        EXPECT_EQ(kvLocalOpenDir(at(name).c_str()), nullptr) << name;
    }
}

} // namespace
