#include "kernel/kvKivo.h"

#include "kernel/FailingSystemCall.h"
#include "kernel/kvContext.h"
#include "support/TemporaryInstallation.h"

#include <fcntl.h>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace kivo::test;
using testing::ElementsAre;

struct MainLogTest : testing::Test {
    TemporaryInstallation const installation;
};

TEST_F(MainLogTest, GetsHeadersAndUnchangedLines) {
    kvKivo::addToMainLog("Configuration", "100 %s %n\n  second\tline");
    kvKivo::addToMainLog(nullptr, nullptr);
    auto const log = installation.at("main.log");
    EXPECT_EQ(std::filesystem::status(log).permissions(), std::filesystem::perms(0600));
    std::string const header =
        "[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3}Z " + std::to_string(getpid());
    std::ifstream file(log);
    EXPECT_THAT(std::string(std::istreambuf_iterator<char>(file), {}),
                testing::MatchesRegex(header + " Configuration\n100 %s %n\n  second\tline\n" + header + " \n\n"));
}

TEST_F(MainLogTest, IsARegularFileOrStandardError) {
    ASSERT_EQ(mkfifo(installation.at("pipe").c_str(), 0600), 0);
    auto const tryOthers = [this] {
        for (auto const& target :
             {installation.at("missing/log"), installation.at("pipe"), std::string("-"), std::string()}) {
            ScopedEnvironment const variable("KIVO_MAIN_LOG", target);
            kvKivo::addToMainLog("To", target.c_str()); // a pipe without a reader does not stop it
        }
        _exit(0);
    };
    // That the log cannot be written is said once.
    EXPECT_EXIT(tryOthers(), testing::ExitedWithCode(0),
                testing::MatchesRegex("The main log \"[^\n]*/missing/log\" cannot be written: "
                                      "No such file or directory\n[^ ]* [^ ]* To\n-\n"));
    EXPECT_FALSE(std::filesystem::exists(installation.at("main.log")));
}

TEST_F(MainLogTest, NeverMixesRecordsOfThreads) { // nor of processes, which open the file just like threads
    constexpr std::size_t THREADS = 8, RECORDS = 60;
    auto const text = "begin\n" + std::string(6000, 'x') + "\nend";
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < THREADS; ++i) {
        threads.emplace_back([&] {
            for (std::size_t record = 0; record < RECORDS; ++record) {
                kvKivo::addToMainLog("Test", text.c_str());
            }
        });
    }
    threads.clear();
    EXPECT_EQ(installation.mainLog("Test"), std::vector<std::string>(THREADS * RECORDS, text));
}

TEST_F(MainLogTest, NeitherEndsNorStopsAToolThatCannotComplain) {
    auto const complain = [](bool isRead) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        fcntl(ends[1], F_SETFL, O_NONBLOCK);
        while (isRead && write(ends[1], "x", 1) == 1) { // until the pipe is full
        }
        fcntl(ends[1], F_SETFL, 0);
        isRead ? 0 : close(ends[0]);
        dup2(ends[1], STDERR_FILENO);
        ScopedEnvironment const variable("KIVO_MAIN_LOG", "/missing/log");
        alarm(10);
        kvKivo::addToMainLog("Test", "text");
        _exit(0);
    };
    EXPECT_EXIT(complain(false), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(complain(true), testing::ExitedWithCode(0), "");
}

TEST_F(MainLogTest, DropsRecordsThatCannotBeWritten) {
    kvKivo::addToMainLog("Test", "whole");
    auto const complaint = [this](std::string const& reason) {
        return "The main log \"" + installation.at("main.log") + "\" cannot be written: " + reason + "\n";
    };
    auto const writeTooMuch = [] {
        rlimit const limit{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        kvKivo::addToMainLog("Test", std::string(5000, 'x').c_str());
        _exit(0);
    };
    EXPECT_EXIT(writeTooMuch(), testing::ExitedWithCode(0), complaint("File too large"));
    auto const writeNothing = [] {
        alarm(10);
        if (failSystemCall(SYS_write, 0)) {
            kvKivo::addToMainLog("Test", "nothing");
        }
        _exit(0);
    };
    EXPECT_EXIT(writeNothing(), testing::ExitedWithCode(0), "");
    auto const writeLocked = [this] {
        alarm(10);
        flock(open(installation.at("main.log").c_str(), O_RDONLY), LOCK_EX);
        for (int i = 0; i < 100; ++i) {
            kvKivo::addToMainLog("Test", "locked");
        }
        _exit(0);
    };
    EXPECT_EXIT(writeLocked(), testing::ExitedWithCode(0), complaint("another process keeps it locked"));
    kvKivo::addToMainLog("Test", "whole again");
    EXPECT_THAT(installation.mainLog("Test"), ElementsAre("whole", "whole again"));
}

TEST_F(MainLogTest, GetsExceptionsWhereReportingIsEnabled) {
    struct Fault : kvException {
        char const* what() const noexcept override { return nullptr; }
    };
    kvContext context(1, 2);
    kvContext::setCurrentShared(&context);
    kvException().reportErrors("not enabled");
    EXPECT_FALSE(kvException::setEnabled(nullptr, true));
    kvException().reportErrors("Loading %d");
    Fault().reportErrors("");
    std::thread([session = kvSessionCurrentGetFunction()] {
        kvException().reportErrors("not enabled in this thread");
        EXPECT_EQ(kvContext::current(nullptr), nullptr);
        EXPECT_NE(kvContext::current(session), nullptr);
    }).join();
    kvException().reportErrors(nullptr);
    EXPECT_TRUE(kvException::setEnabled(nullptr, false));
    kvContext::setCurrentShared(nullptr);
    EXPECT_THAT(installation.mainLog("Kernel"), ElementsAre("Loading %d: Kernel exception", "", "Kernel exception"));
}

} // namespace
