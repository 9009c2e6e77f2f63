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

TEST(FileSystemVisitorTest, EndsWhenTheVisitorWantsItAndSaysWhatItCannotExamine) {
    TemporaryInstallation const installation;
    for (char const* file : {"some/a", "some/b./c..", "some/d"}) {
        installation.write(file, "");
    }
    for (int last = 1; last <= 5; ++last) {
        Visitor visitor;
        visitor.last = last;
        EXPECT_EQ(visitor.scan(installation.at("some").c_str(), true), last == 5);
        EXPECT_EQ(visitor.seen, std::min(last, 4));
    }
    EXPECT_TRUE(Visitor().scan(installation.at("none").c_str(), true));
    EXPECT_EQ(installation.mainLog("Kernel").at(0),
              "Directory \"" + installation.at("none") + "\" cannot be examined: No such file or directory");
    EXPECT_EQ(whatOf([] { Visitor().scan("", true); }), contractText("directory != 0 && *directory != 0"));
    EXPECT_EQ(whatOf([] { Visitor::endsWith(nullptr, nullptr); }), contractText("s != 0"));
    EXPECT_EQ(whatOf([] { Visitor::endsWith("", nullptr); }), contractText("suffix != 0"));
}

} // namespace
