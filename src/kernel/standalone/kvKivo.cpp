#include "kernel/kvKivo.h"

#include "kernel/standalone/kvEnvironment.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// The log file, opened and locked against every other writer for as long as this object lives. Each record opens the
// file anew: it may have been moved away meanwhile, and a lock belongs to an opening, so that it parts threads, too.
class LockedLog {
public:
    explicit LockedLog(char const* path)
        // Without O_NONBLOCK a pipe that nobody reads would stop the process here.
        : mDescriptor(
              open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, S_IRUSR | S_IWUSR)) {
        mUsable = mDescriptor >= 0 && isRegularFile() && lock();
    }

    ~LockedLog() {
        if (mDescriptor >= 0) {
            close(mDescriptor);
        }
    }

    LockedLog(LockedLog const&) = delete;
    LockedLog& operator=(LockedLog const&) = delete;

    void append(std::string_view record);

private:
    bool isRegularFile() const {
        struct stat status {};
        return fstat(mDescriptor, &status) == 0 && S_ISREG(status.st_mode);
    }

    bool lock() const {
        int result = -1;
        do {
            result = flock(mDescriptor, LOCK_EX);
        } while (result != 0 && errno == EINTR);
        return result == 0;
    }

    int mDescriptor;
    bool mUsable = false;
};

// One write as a rule; false when the rest could not be written.
bool writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        ssize_t const written = write(descriptor, text.data(), text.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        text.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return true;
}

void LockedLog::append(std::string_view record) {
    struct stat before {};
    if (!mUsable || fstat(mDescriptor, &before) != 0 || writeAll(mDescriptor, record)) {
        return;
    }
    // A full disk, for example: the next record must not start within half of this one.
    [[maybe_unused]] int const ignored = ftruncate(mDescriptor, before.st_size);
}

// UTC in ISO 8601 with milliseconds, such as 2024-02-29T23:59:59.042Z.
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
    std::string record = currentTime() + ' ' + std::to_string(getpid()) + ' ';
    record += category ? category : "";
    record += '\n';
    record += text ? text : "";
    record += '\n';
    return record;
}

} // namespace

// KIVO_MAIN_LOG names the log: a regular file, made when missing, or `-` for standard error. Without it there is no
// log.
void kvKivo::addToMainLog(char const* category, char const* text) {
    char const* const target = kvEnvironmentValue("KIVO_MAIN_LOG");
    if (!target) {
        return;
    }
    std::string const record = composeRecord(category, text);
    if (std::string_view(target) == "-") {
        // Not locked: a lock on an inherited descriptor excludes nobody who inherited it, too.
        writeAll(STDERR_FILENO, record);
        return;
    }
    LockedLog(target).append(record);
}
