#include "kernel/kvKivo.h"

#include "kernel/kvException.h"
#include "support/TemporaryInstallation.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <ranges>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
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
    testing::internal::CaptureStderr();
    for (auto const& target :
         {installation.at("missing/log"), installation.at("pipe"), std::string("-"), std::string()}) {
        ScopedEnvironment const variable("KIVO_MAIN_LOG", target);
        kvKivo::addToMainLog("To", target.c_str()); // a pipe without a reader does not stop it
    }
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::MatchesRegex("[^ ]* [^ ]* To\n-\n"));
    EXPECT_FALSE(std::filesystem::exists(installation.at("main.log")));
}

TEST_F(MainLogTest, NeverMixesRecordsOfThreadsAndProcesses) {
    constexpr int PROCESSES = 3, THREADS = 3, RECORDS = 540;
    auto const textOf = [](int i) { return std::to_string(100 + i) + std::string(6000, 'x') + "\nend"; };
    for (int process = 0; process < PROCESSES; ++process) {
        if (fork() == 0) {
            std::vector<std::jthread> threads;
            for (int thread = 0; thread < THREADS; ++thread) {
                threads.emplace_back([&, first = process * THREADS + thread] {
                    for (int i = first; i < RECORDS; i += PROCESSES * THREADS) {
                        kvKivo::addToMainLog("Test", textOf(i).c_str());
                    }
                });
            }
            threads.clear();
            _exit(0);
        }
    }
    while (wait(nullptr) > 0) {
    }
    auto records = installation.mainLog("Test");
    std::ranges::sort(records);
    auto const expected = std::views::iota(0, RECORDS) | std::views::transform(textOf);
    EXPECT_TRUE(std::ranges::equal(records, expected)) << records.size() << " records";
}

TEST_F(MainLogTest, HasNoHalfRecordWhenTheFileCannotGrow) {
    kvKivo::addToMainLog("Test", "whole");
    auto const writeTooMuch = [] {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit const limit{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        kvKivo::addToMainLog("Test", std::string(5000, 'x').c_str());
        _exit(0);
    };
    EXPECT_EXIT(writeTooMuch(), testing::ExitedWithCode(0), "");
    kvKivo::addToMainLog("Test", "whole again");
    EXPECT_THAT(installation.mainLog("Test"), ElementsAre("whole", "whole again"));
}

TEST_F(MainLogTest, GetsExceptionsWhereReportingIsEnabled) {
    struct Fault : kvException {
        char const* what() const noexcept override { return nullptr; }
    };
    kvException().reportErrors("not enabled");
    kvException::setEnabled(nullptr, true);
    kvException().reportErrors("Loading %d");
    Fault().reportErrors("");
    kvException().reportErrors(nullptr);
    kvException::setEnabled(nullptr, false);
    EXPECT_THAT(installation.mainLog("Kernel"), ElementsAre("Loading %d: Kernel exception", "", "Kernel exception"));
}

} // namespace
