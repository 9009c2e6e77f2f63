#include "kernel/kvKivo.h"

#include "KernelTest.h"

#include <algorithm>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

class kvKivoTest : public KernelTest {
protected:
    kvKivoTest() { logTo(mLog); }

    // Runs `work` in another process; yields its process number.
    template <typename Work>
    static pid_t startProcess(Work work) {
        pid_t const child = fork();
        if (child == 0) {
            work();
            _exit(0);
        }
        return child;
    }

    static void waitFor(pid_t child) {
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    }

    std::string const mLog = at("log");
};

TEST_F(kvKivoTest, WritesHeaderAndUnchangedLines) {
    mode_t const mask = umask(0);
    kvKivo::addToMainLog("Configuration", "100 %s %n\n  second\tline");
    umask(mask);
    EXPECT_THAT(contentOf(mLog), testing::MatchesRegex(headerPattern(std::to_string(getpid()), "Configuration") +
                                                       "\n100 %s %n\n  second\tline\n"));
    EXPECT_EQ(std::filesystem::status(mLog).permissions(), std::filesystem::perms(0600));

    kvKivo::addToMainLog("Next", "appended");
    kvKivo::addToMainLog(nullptr, nullptr);
    EXPECT_EQ(recordsOf(mLog),
              (std::vector<std::string>{"Configuration|100 %s %n\n  second\tline", "Next|appended", "|"}));
}

TEST_F(kvKivoTest, DropsTheRecordWithoutARegularFile) {
    std::string const pipe = at("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (std::string const& target : {at("missing/log"), at(""), pipe}) {
        logTo(target);
        kvKivo::addToMainLog("Kernel", "lost"); // returns: a pipe without a reader does not stop it
    }
    unsetenv("KIVO_MAIN_LOG");
    kvKivo::addToMainLog("Kernel", "lost");
    EXPECT_FALSE(std::filesystem::exists(mLog));
}

TEST_F(kvKivoTest, DashIsStandardError) {
    logTo("-");
    testing::internal::CaptureStderr();
    kvKivo::addToMainLog("Kernel", "to the terminal");
    std::string const written = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(written.ends_with(" Kernel\nto the terminal\n")) << written;
    EXPECT_FALSE(std::filesystem::exists("-"));
}

TEST_F(kvKivoTest, NeverMixesRecordsOfThreadsAndProcesses) {
    constexpr int PROCESSES = 3, THREADS = 3, RECORDS = 60, ALL = PROCESSES * THREADS * RECORDS;
    auto const textOf = [](int process, int thread, int record) {
        std::string const line = std::to_string(process) + '.' + std::to_string(thread) + '.' + std::to_string(record);
        std::string text = line;
        for (int i = 0; i < 1000; ++i) {
            text += '\n' + line;
        }
        return text;
    };
    std::vector<pid_t> children;
    children.reserve(PROCESSES);
    for (int process = 0; process < PROCESSES; ++process) {
        children.push_back(startProcess([&] {
            std::vector<std::jthread> threads;
            threads.reserve(THREADS);
            for (int thread = 0; thread < THREADS; ++thread) {
                threads.emplace_back([&textOf, process, thread] {
                    for (int record = 0; record < RECORDS; ++record) {
                        kvKivo::addToMainLog("Test", textOf(process, thread, record).c_str());
                    }
                });
            }
        }));
    }
    std::for_each(children.begin(), children.end(), waitFor);

    std::vector<std::string> expected;
    expected.reserve(ALL);
    for (int i = 0; i < ALL; ++i) {
        expected.push_back("Test|" + textOf(i / (THREADS * RECORDS), i / RECORDS % THREADS, i % RECORDS));
    }
    std::vector<std::string> records = recordsOf(mLog);
    std::sort(records.begin(), records.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_TRUE(records == expected) << records.size() << " records";
}

TEST_F(kvKivoTest, LeavesNoHalfRecordWhenTheFileCannotGrow) {
    kvKivo::addToMainLog("Test", "whole");
    waitFor(startProcess([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit const limit{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        kvKivo::addToMainLog("Test", std::string(5000, 'x').c_str());
    }));
    kvKivo::addToMainLog("Test", "whole again");
    EXPECT_EQ(recordsOf(mLog), (std::vector<std::string>{"Test|whole", "Test|whole again"}));
}

} // namespace
