#include "manager/FileSystemVisitor.h"

#include <configuration/ContractViolationException.h>

#include "support/Exceptions.h"
#include "support/TemporaryInstallation.h"

#include <gtest/gtest.h>

namespace kivo::test {

using namespace configuration;

namespace {

/// Notes what it is shown, relative to the directory, directories with a slash behind them; a path can end the scan.
class Notes final : public FileSystemVisitor {
public:
    explicit Notes(TemporaryDirectory const& directory, std::string last = "")
        : mStart(directory.at("").size()), mLast(std::move(last)) {}

    bool visitDirectory(char const* path) override { return note(path + mStart, "/"); }
    bool visitFile(char const* path) override { return note(path + mStart, ""); }

    std::string text;

private:
    bool note(std::string const& path, char const* end) {
        text += (text.empty() ? "" : " ") + path + end;
        return path + end != mLast;
    }

    std::size_t mStart;
    std::string mLast;
};

class FileSystemVisitorTest : public testing::Test {
protected:
    FileSystemVisitorTest() {
        for (char const* file : {"a.crg", "b/c", "b/d./e", "f..", "g/h"}) {
            directory.write(file, "");
        }
        std::filesystem::create_symlink("nowhere", directory.at("dangling"));
    }

    TemporaryDirectory const directory;
};

TEST_F(FileSystemVisitorTest, ShowsFilesAndDirectoriesBeforeTheirEntries) {
    for (std::string const end : {"", "/"}) {
        auto const start = directory.at("").substr(0, directory.at("").size() - 1) + end;
        Notes deep(directory);
        EXPECT_TRUE(deep.scan(start.c_str(), true));
        EXPECT_EQ(deep.text, "a.crg b/ b/c b/d./ b/d./e dangling f.. g/ g/h");
        Notes flat(directory);
        EXPECT_TRUE(flat.scan(start.c_str(), false));
        EXPECT_EQ(flat.text, "a.crg dangling f..");
    }
    Notes none(directory);
    EXPECT_TRUE(none.scan(directory.at("none").c_str(), true));
    EXPECT_TRUE(none.scan(directory.at("a.crg").c_str(), true));
    EXPECT_EQ(none.text, "");
}

TEST_F(FileSystemVisitorTest, EndsWhenTheVisitorWantsIt) {
    for (std::string const shown : {"a.crg b/ b/c b/d./ b/d./e", "a.crg b/ b/c b/d./", "a.crg b/ b/c", "a.crg b/"}) {
        Notes notes(directory, shown.substr(shown.rfind(' ') + 1));
        EXPECT_FALSE(notes.scan(directory.at("").c_str(), true));
        EXPECT_EQ(notes.text, shown);
    }
}

TEST_F(FileSystemVisitorTest, ChecksItsArguments) {
    auto const what = [](auto call) { return whatOf<ContractViolationException>(call); };
    Notes notes(directory);
    EXPECT_EQ(what([&] { notes.scan(nullptr, true); }), contractText("directory != 0 && *directory != 0"));
    EXPECT_EQ(what([&] { notes.scan("", true); }), contractText("directory != 0 && *directory != 0"));
    EXPECT_EQ(what([] { FileSystemVisitor::endsWith(nullptr, nullptr); }), contractText("s != 0"));
    EXPECT_EQ(what([] { FileSystemVisitor::endsWith("", nullptr); }), contractText("suffix != 0"));
    EXPECT_TRUE(FileSystemVisitor::endsWith("a.crg", ".crg"));
    EXPECT_TRUE(FileSystemVisitor::endsWith(".crg", ".crg"));
    EXPECT_TRUE(FileSystemVisitor::endsWith("", ""));
    EXPECT_FALSE(FileSystemVisitor::endsWith("a.CRG", ".crg"));
    EXPECT_FALSE(FileSystemVisitor::endsWith("crg", ".crg"));
}

} // namespace

} // namespace kivo::test
