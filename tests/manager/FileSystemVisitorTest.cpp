#include "manager/FileSystemVisitor.h"

#include "support/Exceptions.h"
#include "support/TemporaryInstallation.h"

#include <gtest/gtest.h>

using namespace kivo::test;

namespace {

struct Visitor final : kivo::configuration::FileSystemVisitor {
    bool visitDirectory(char const*) override { return ++seen < last; }
    bool visitFile(char const*) override { return ++seen < last; }
    int seen = 0;
    int last = 9;
};

TEST(FileSystemVisitorTest, EndsWhenTheVisitorWantsIt) {
    TemporaryDirectory const directory;
    for (char const* file : {"a", "b./c..", "d"}) {
        directory.write(file, "");
    }
    for (int last = 1; last <= 5; ++last) {
        Visitor visitor;
        visitor.last = last;
        EXPECT_EQ(visitor.scan(directory.at("").c_str(), true), last == 5);
        EXPECT_EQ(visitor.seen, std::min(last, 4));
    }
    EXPECT_EQ(whatOf([] { Visitor().scan("", true); }), contractText("directory != 0 && *directory != 0"));
    EXPECT_EQ(whatOf([] { Visitor::endsWith(nullptr, nullptr); }), contractText("s != 0"));
    EXPECT_EQ(whatOf([] { Visitor::endsWith("", nullptr); }), contractText("suffix != 0"));
}

TEST(FileSystemVisitorTest, SaysWhatItCannotExamine) {
    TemporaryInstallation const installation;
    EXPECT_TRUE(Visitor().scan(installation.at("none").c_str(), true));
    EXPECT_EQ(installation.mainLog("Kernel").at(0),
              "Directory \"" + installation.at("none") + "\" cannot be examined: No such file or directory");
}

} // namespace
