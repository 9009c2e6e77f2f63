// Files that are made to do harm: each must be refused, or read, in little time and memory.

#include "registry/xml/XmlFile.h"

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
#include <functional>
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

std::string repeat(int count, std::function<std::string(int)> const& piece) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += piece(i);
    }
    return text;
}

std::string repeat(int count, std::string const& piece) {
    return repeat(count, [&piece](int) { return piece; });
}

std::string numbered(std::string const& before, int i, std::string const& behind) {
    return before + std::to_string(i) + behind;
}

std::string attributes(int count) {
    return repeat(count, [](int i) { return numbered(" a", i, "='1'"); });
}

/// Ten entities, each of which is ten times the one before.
std::string bomb(std::string const& use) {
    auto const entity = [](int i) {
        return numbered("<!ENTITY e", i + 1, " '") + repeat(10, numbered("&e", i, ";")) + "'>";
    };
    return "<!DOCTYPE r [<!ENTITY e0 'lol'>" + repeat(9, entity) + use;
}

struct HostileCase {
    char const* label;
    std::function<std::string()> content;
    char const* fault; ///< its text up to the file's name; empty: the file is read
};

class Hostile : public testing::TestWithParam<HostileCase> {};

/// Reads each file in a process of its own, so that what it costs can be told and limited.
TEST_P(Hostile, CostsLittleAndIsRefusedWithItsPlace) {
    TemporaryDirectory const directory;
    auto const file = directory.write("f.xml", GetParam().content());
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
    ASSERT_EQ(wait4(child, &status, 0, &usage), child);
    ASSERT_EQ(status, 0);
#ifndef __SANITIZE_ADDRESS__ // which slows everything down, and keeps what is released
    EXPECT_LT(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec, 3);
    EXPECT_LT(usage.ru_maxrss / 1024, 200);
#endif
    std::ifstream stream(directory.at("faults"));
    std::string const faults(std::istreambuf_iterator<char>(stream), {});
    std::string const fault = GetParam().fault;
    auto const beginning = fault.empty() ? "" : "XML ERROR: " + fault + ". File: \"" + file + "\". Line: 1. Column: ";
    EXPECT_EQ(faults.substr(0, beginning.size()), beginning);
    EXPECT_EQ(faults.empty(), fault.empty());
    EXPECT_EQ(faults.find('\n'), std::string::npos);
}

constexpr char const* TOO_DEEP = "elements are nested more than 1000 levels deep";
constexpr char const* TOO_MANY_NAMES = "there are more than 20000 different names";
constexpr char const* TOO_MANY_NAMESPACES = "there are more than 1000 namespaces around an element";
std::string const LONG_NAME = "the external entity '" + repeat(1000, "e") + "' is not accepted";
constexpr char const* TOO_MANY_EXPANSIONS =
    "parser has encountered more than '1000' entity expansions in the document; "
    "this is the limit imposed by the application";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Files, Hostile, testing::Values(
    HostileCase{"Depth1000", [] { return repeat(1000, "<a>") + repeat(1000, "</a>"); }, ""},
    HostileCase{"Depth1001", [] { return repeat(1001, "<a>"); }, TOO_DEEP},
    HostileCase{"Depth200000", [] { return repeat(200000, "<a>") + repeat(200000, "</a>"); }, TOO_DEEP},
    HostileCase{"Siblings100000", [] { return "<r>" + repeat(100000, "<a b='c'/>\n") + "</r>"; }, ""},
    HostileCase{"Attributes10000", [] { return "<r" + attributes(10000) + "/>"; }, ""},
    HostileCase{"Attributes100000", [] { return "<r" + attributes(100000) + "/>"; }, "an element has more than 10000 attributes"},
    HostileCase{"LargeElements", [] { return "<r>" + repeat(20, "<e" + attributes(9900) + "/>") + "</r>"; }, "too many elements have more than 1000 attributes"},
    HostileCase{"AttributeOf10MB", [] { return "<r a='" + std::string(10000000, 'x') + "'/>"; }, ""},
    HostileCase{"Namespaces1000", [] { return "<r" + repeat(1000, [](int i) { return numbered(" xmlns:p", i, "='u'"); }) + "/>"; }, ""},
    HostileCase{"Namespaces1001", [] { return "<r" + repeat(1001, [](int i) { return numbered(" xmlns:p", i, "='u'"); }) + "/>"; }, TOO_MANY_NAMESPACES},
    HostileCase{"Names", [] { return "<r>" + repeat(100000, [](int i) { return numbered("<a", i, "/>"); }); }, TOO_MANY_NAMES},
    HostileCase{"Namespaces", [] { return "<r>" + repeat(100000, [](int i) { return numbered("<p:a xmlns:p='u", i, "'/>"); }); }, TOO_MANY_NAMES},
    HostileCase{"NamespacesAgain", [] { return repeat(900, "<a xmlns:p='u' xmlns='v'>") + repeat(100000, "<b/>"); }, TOO_MANY_NAMESPACES},
    HostileCase{"TextAndComments", [] { return "<r>" + repeat(1000000, "x<!--c-->") + "</r>"; }, ""},
    HostileCase{"Expansions1000", [] { return "<!DOCTYPE r [<!ENTITY e 'x'>]><r a='" + repeat(1000, "&e;&amp;") + "'/>"; }, ""},
    HostileCase{"Expansions1001", [] { return "<!DOCTYPE r [<!ENTITY e '<a/>'>]><r>" + repeat(1001, "&e;") + "</r>"; }, TOO_MANY_EXPANSIONS},
    HostileCase{"BombInAnAttribute", [] { return bomb("]><r a='&e9;'/>"); }, TOO_MANY_EXPANSIONS},
    HostileCase{"BombInADefault", [] { return bomb("<!ATTLIST r a CDATA '&e9;'>]><r/>"); }, "an attribute list behind an entity is not accepted"},
    HostileCase{"BombOfParameterEntities", [] { return std::string("<!DOCTYPE r [<!ENTITY % p '<!ELEMENT x ANY>'>%p;]><r/>"); }, "the parameter entity 'p' is not accepted"},
    HostileCase{"LongEntity", [] { return "<!DOCTYPE r [<!ENTITY e '" + repeat(1001, "x") + "'>]><r a='" + repeat(1000, "&e;") + "'/>"; }, "the entity 'e' has more than 1000 characters"},
    HostileCase{"LongestEntity", [] { return "<!DOCTYPE r [<!ENTITY e '" + repeat(250, "<a/>") + "'>]><r>" + repeat(1000, "&e;") + "</r>"; }, ""},
    HostileCase{"ManyEntities", [] { return "<!DOCTYPE r [" + repeat(200000, [](int i) { return numbered("<!ENTITY e", i, " 'x'>"); }) + "]><r/>"; }, "more than 1000 entities are declared"},
    HostileCase{"LongName", [] { return "<!DOCTYPE r [<!ENTITY " + repeat(4000, "e") + " SYSTEM 'x'>]><r/>"; }, LONG_NAME.c_str()},
    HostileCase{"Recursion", [] { return std::string("<!DOCTYPE r [<!ENTITY a '&b;'><!ENTITY b '&a;'>]><r>&a;</r>"); }, "recursive entity expansion 'a'"},
    HostileCase{"ManyAttributes", [] { return "<!DOCTYPE r [<!ATTLIST r" + repeat(100000, [](int i) { return numbered(" a", i, " CDATA 'x'"); }) + ">]><r/>"; }, "more than 1000 attributes are declared"},
    HostileCase{"LongDefault", [] { return "<!DOCTYPE r [<!ATTLIST e a CDATA '" + repeat(100000, "x") + "'>]><r>" + repeat(20000, "<e/>") + "</r>"; }, "the declared defaults of attributes make the document too large"},
    HostileCase{"ManyDefaults", [] { return "<!DOCTYPE r [<!ATTLIST e" + repeat(1000, [](int i) { return numbered(" a", i, " CDATA ''"); }) + ">]><r>" + repeat(20000, "<e/>") + "</r>"; }, "the declared defaults of attributes make the document too large"},
    HostileCase{"NameOfADefault", [] { return std::string("<!DOCTYPE r [<!ATTLIST r xml:a:b CDATA 'x'>]><r/>"); }, "attempt is made to create or change an object in a way which is incorrect with respect to namespaces"},
    HostileCase{"FewDefaults", [] { return "<!DOCTYPE r [<!ATTLIST e a CDATA '12345678'>]><r>" + repeat(20000, "<e/>") + "</r>"; }, ""},
    HostileCase{"DeepContent", [] { return "<!DOCTYPE r [<!ELEMENT r " + repeat(200000, "(") + "a" + repeat(200000, ")") + ">]><r/>"; }, ""},
    HostileCase{"WideContent", [] { return "<!DOCTYPE r [<!ELEMENT r (a" + repeat(200000, ",a") + ")>]><r/>"; }, ""}),
    [](auto const& row) { return std::string(row.param.label); });
// clang-format on

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
    constexpr char const* EXTERNAL = "an external document type declaration is not accepted";
    std::pair<std::string, std::string> const cases[] = {
        {"<!DOCTYPE r SYSTEM '@' [<!ENTITY f 'x'>]><r b='&e;'/>", EXTERNAL},
        {"<!DOCTYPE r PUBLIC 'p' '@'><r/>", EXTERNAL},
        {"<!DOCTYPE r [<!ENTITY e SYSTEM '@'>]><r>&e;</r>", "the external entity 'e' is not accepted"},
        {"<!DOCTYPE r [<!ENTITY % e SYSTEM '@'>%e;]><r/>", "the parameter entity 'e' is not accepted"},
        {"<r xmlns:i='http://www.w3.org/2001/XInclude'><i:include href='@' parse='text'/></r>", ""},
        {"<r xmlns:x='http://www.w3.org/2001/XMLSchema-instance' x:schemaLocation='u @'/>", ""},
        {"<?xml-stylesheet href='@'?><r xmlns='@'/>", ""},
    };
    for (auto const& [content, fault] : cases) {
        for (auto const& target : {secret, "file://" + secret, url}) {
            auto const file = directory.write("f.xml", std::regex_replace(content, std::regex("@"), target));
            auto const expected = "XML ERROR: " + fault + ". File: \"" + file + "\". Line: 1. Column: ";
            EXPECT_THAT(faultsOf(file), testing::StartsWith(fault.empty() ? "" : expected));
            EXPECT_EQ(faultsOf(file).empty(), fault.empty());
        }
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
