// Files that are made to do harm: each must be refused, or read, in little time and memory.

#include "registry/xml/XmlFile.h"

#include "support/CaseFile.h"
#include "support/Repeat.h"
#include "support/TemporaryInstallation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

namespace kivo::test {

using namespace configuration;

namespace {

/// The faults of a file, a line each; empty when it could be read.
std::string faultsOf(std::string const& file) {
    XmlFile const read(file.c_str());
    return read.getErrors().getNumberOfErrors() == 0 ? "" : composeMessage(read.getErrors());
}

/// A fault without its place, when that is in the first line of the file.
std::string withoutPlace(std::string const& fault, std::string const& file) {
    return fault.substr(0, fault.find(". File: \"" + file + "\". Line: 1. Column: "));
}

extern "C" [[gnu::weak]] void __gcov_dump(); // there when coverage is counted

/// Keeps a fault that is not refused from harming the machine.
void limitProcess() {
    rlimit const seconds{10, 10};
    setrlimit(RLIMIT_CPU, &seconds);
#ifndef __SANITIZE_ADDRESS__ // which reserves a large part of the address space
    rlimit const bytes{1U << 31, 1U << 31};
    setrlimit(RLIMIT_AS, &bytes);
#endif
}

/// Reads a file in a process of its own, so that what it costs can be told and limited. @return its faults
std::string faultsAtLittleCost(TemporaryDirectory const& directory, std::string const& file) {
    auto const child = fork();
    if (child == 0) {
        limitProcess();
        directory.write("faults", faultsOf(file));
        if (__gcov_dump) {
            __gcov_dump();
        }
        _exit(0);
    }
    int status = -1;
    rusage usage{};
    EXPECT_EQ(wait4(child, &status, 0, &usage), child);
    EXPECT_EQ(status, 0);
#ifndef __SANITIZE_ADDRESS__ // which slows everything down, and keeps what is released
    EXPECT_LT(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec, 3);
    EXPECT_LT(usage.ru_maxrss / 1024, 200);
#endif
    std::ifstream stream(directory.at("faults"));
    EXPECT_TRUE(stream);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

TEST(Hostile, FilesCostLittleAndAreRefusedWithTheirPlace) {
    auto const cases = readCases(TEST_DATA_DIR "/xml/hostile.txt");
    EXPECT_GT(cases.size(), 25u);
    for (auto const& row : cases) {
        SCOPED_TRACE(row["case"]);
        TemporaryDirectory const directory;
        auto const file = directory.write("f.xml", expanded(unescaped(row["file"])));
        auto const faults = faultsAtLittleCost(directory, file);
        EXPECT_EQ(lines({withoutPlace(faults, file)}), expanded(row.expected));
        EXPECT_EQ(faults.find('\n'), std::string::npos);
    }
}

TEST(Outside, NoOtherFileIsReadAndNothingIsFetched) {
    auto const listener = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), length), 0);
    ASSERT_EQ(listen(listener, 8), 0);
    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length);
    auto const url = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + "/x";

    TemporaryDirectory const directory;
    // What no element may get: the text of the entity, the default of the attribute.
    auto const secret = directory.write("secret", "<!ENTITY e 'SECRET'><!ATTLIST r a CDATA 'SECRET'>");
    for (auto const& target : {secret, "file://" + secret, url}) {
        checkCases("xml/outside.txt", [&](FileCase const& row) {
            auto const file = directory.write("f.xml", std::regex_replace(row["file"], std::regex("@"), target));
            return lines({withoutPlace(faultsOf(file), file)});
        });
    }
    EXPECT_EQ(faultsOf(url), "XML ERROR: the file does not exist. File: \"" + url + "\".");
    EXPECT_EQ(accept(listener, nullptr, nullptr), -1) << "somebody called";
    close(listener);
}

TEST(Outside, OnlyRegularFilesAreOpened) {
    TemporaryDirectory const directory;
    auto const file = directory.write("f.xml", "<r/>");
    ASSERT_EQ(mkfifo(directory.at("pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink("f.xml", directory.at("link"));
    std::filesystem::create_symlink("circle", directory.at("circle"));
    std::pair<std::string, std::string> const cases[] = {
        {directory.at("pipe"), "this is not a regular file"},
        {directory.at(""), "this is not a regular file"},
        {"/dev/zero", "this is not a regular file"},
        {"/proc/self/mem", "unable to read data from file"},
        {file + "/x", "the file cannot be read (system error " + std::to_string(ENOTDIR) + ")"},
        {directory.at("circle"), "the file cannot be read (system error " + std::to_string(ELOOP) + ")"},
    };
    for (auto const& [path, fault] : cases) {
        EXPECT_EQ(faultsOf(path), "XML ERROR: " + fault + ". File: \"" + path + "\".");
    }
    EXPECT_EQ(faultsOf(directory.at("link")), "");
    auto const noUtf8 = directory.write("\xE9%s.xml", "<r>");
    for (std::uintmax_t const size : {std::uintmax_t(3), std::uintmax_t(1) << 40}) { // zeros, which take no space
        std::filesystem::resize_file(noUtf8, size);
        EXPECT_THAT(faultsOf(noUtf8), testing::EndsWith(" File: \"" + noUtf8 + "\". Line: 1. Column: 4."));
    }
    if (geteuid() != 0) { // who may read everything
        std::filesystem::permissions(file, std::filesystem::perms::none);
        EXPECT_EQ(faultsOf(file), "XML ERROR: the file may not be read. File: \"" + file + "\".");
    }
}

} // namespace

} // namespace kivo::test
