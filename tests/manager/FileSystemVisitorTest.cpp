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
    directory.write("a", "");
    directory.write("b./c..", "");
    directory.write("d", "");
    for (int last = 1; last <= 5; ++last) {
        Visitor visitor;
        visitor.last = last;
        EXPECT_EQ(visitor.scan(directory.at("").c_str(), true), last == 5);
        EXPECT_EQ(visitor.seen, std::min(last, 4));
    }
    EXPECT_TRUE(Visitor().scan(directory.at("a").c_str(), true)); // which cannot be listed
    EXPECT_EQ(whatOf([] { Visitor().scan("", true); }), contractText("directory != 0 && *directory != 0"));
    EXPECT_EQ(whatOf([] { Visitor::endsWith(nullptr, nullptr); }), contractText("s != 0"));
    EXPECT_EQ(whatOf([] { Visitor::endsWith("", nullptr); }), contractText("suffix != 0"));
}

} // namespace
