#include "kernel/kvKivo.h"

#include "kernel/standalone/Environment.h"
#include "kernel/standalone/LogFile.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <string>
#include <string_view>

#include <poll.h>
#include <unistd.h>

namespace {

using namespace kivo::kernel;

/// Keeps one of the signals that a write can send from ending the process.
class WriteSignalBlock {
public:
    explicit WriteSignalBlock(int signal) {
        sigemptyset(&mSignal);
        sigaddset(&mSignal, signal);
        sigset_t pending;
        sigpending(&pending);
        mWasPending = sigismember(&pending, signal) == 1;
        pthread_sigmask(SIG_BLOCK, &mSignal, &mMask);
    }
    ~WriteSignalBlock() {
        timespec const noTime{};
        while (!mWasPending && sigtimedwait(&mSignal, nullptr, &noTime) < 0 && errno == EINTR) {
        }
        pthread_sigmask(SIG_SETMASK, &mMask, nullptr);
    }
    WriteSignalBlock(WriteSignalBlock const&) = delete;
    WriteSignalBlock& operator=(WriteSignalBlock const&) = delete;

private:
    sigset_t mSignal;
    sigset_t mMask;
    bool mWasPending;
};

/// UTC in ISO 8601 with milliseconds, such as 2024-02-29T23:59:59.042Z.
std::string currentTime() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    tm parts{};
    gmtime_r(&now.tv_sec, &parts);
    std::array<char, 64> seconds{};
    std::strftime(seconds.data(), seconds.size(), "%Y-%m-%dT%H:%M:%S", &parts);
    std::array<char, 32> fraction{};
    std::snprintf(fraction.data(), fraction.size(), ".%03ldZ", now.tv_nsec / 1'000'000);
    return std::string(seconds.data()) + fraction.data();
}

std::string composeRecord(char const* category, char const* text) {
    auto record = currentTime() + ' ' + std::to_string(getpid()) + ' ';
    record += category ? category : "";
    record += '\n';
    record += text ? text : "";
    record += '\n';
    return record;
}

/// Whether a write to standard error would go on at once: a full pipe that nobody reads would stop the tool.
bool canComplain() {
    pollfd standardError{STDERR_FILENO, POLLOUT, 0};
    return poll(&standardError, 1, 0) == 1 && (standardError.revents & POLLOUT) != 0;
}

/// Says on standard error, once in a process, that the log cannot be written.
void complain(char const* path, std::string const& reason) {
    static std::atomic_flag smWasSaid;
    if (!smWasSaid.test_and_set() && canComplain()) {
        writeAll(STDERR_FILENO, std::string("The main log \"") + path + "\" cannot be written: " + reason + '\n');
    }
}

} // namespace

// KIVO_MAIN_LOG names the log: a regular file, made when missing, or `-` for standard error. Without it there is no
// log.
void kvKivo::addToMainLog(char const* category, char const* text) {
    auto const* target = environmentValue("KIVO_MAIN_LOG");
    if (!target) {
        return;
    }
    WriteSignalBlock const beyondSizeLimit(SIGXFSZ);
    WriteSignalBlock const withoutReader(SIGPIPE);
    auto const record = composeRecord(category, text);
    if (std::string_view(target) == "-") {
        // Not locked: a lock on an inherited descriptor excludes nobody who inherited it, too.
        writeAll(STDERR_FILENO, record);
    } else if (auto const reason = appendToLogFile(target, record); !reason.empty()) {
        complain(target, reason);
    }
}
