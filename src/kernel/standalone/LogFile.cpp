#include "kernel/standalone/LogFile.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kivo::kernel {

namespace {

constexpr auto LOCK_PATIENCE = std::chrono::seconds(1);
constexpr auto LOCK_PAUSE = std::chrono::milliseconds(1);

std::string lastError() { return std::generic_category().message(errno); }

/// The log file of one record. Each record opens it anew: it may have been moved away meanwhile, and a lock belongs to
/// an opening, so that it also keeps threads of one process apart.
class LogFile {
public:
    explicit LogFile(char const* path)
        // Without O_NONBLOCK a pipe that nobody reads would stop the process here.
        : mDescriptor(
              open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, S_IRUSR | S_IWUSR)) {}
    ~LogFile() {
        if (mDescriptor >= 0) {
            close(mDescriptor);
        }
    }
    LogFile(LogFile const&) = delete;
    LogFile& operator=(LogFile const&) = delete;

    /// Each returns the reason when it fails, and an empty text when it succeeds.
    std::string check() const;
    std::string lock() const;
    std::string append(std::string_view record) const;

private:
    int mDescriptor;
};

std::string LogFile::check() const {
    struct stat status {};
    if (mDescriptor < 0 || fstat(mDescriptor, &status) != 0) {
        return lastError();
    }
    return S_ISREG(status.st_mode) ? "" : "it is not a regular file";
}

std::string LogFile::lock() const {
    // A holder that was stopped keeps the lock: the records of a process wait for it once, not each for a second.
    static std::atomic<bool> smIsWaitingInVain = false;
    auto const start = std::chrono::steady_clock::now();
    while (flock(mDescriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            return lastError();
        }
        if (smIsWaitingInVain || std::chrono::steady_clock::now() - start >= LOCK_PATIENCE) {
            smIsWaitingInVain = true;
            return "another process keeps it locked";
        }
        std::this_thread::sleep_for(LOCK_PAUSE);
    }
    smIsWaitingInVain = false;
    return "";
}

std::string LogFile::append(std::string_view record) const {
    struct stat before {};
    if (fstat(mDescriptor, &before) != 0) {
        return lastError();
    }
    if (writeAll(mDescriptor, record)) {
        return "";
    }
    auto reason = lastError();
    // A full disk, for example: the next record must not start within half of this one.
    [[maybe_unused]] auto const ignored = ftruncate(mDescriptor, before.st_size);
    return reason;
}

} // namespace

bool writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        auto const written = write(descriptor, text.data(), text.size());
        if (written == 0) {
            errno = EIO; // no reason given; trying again could go on for ever
        }
        if (written == 0 || (written < 0 && errno != EINTR)) {
            return false;
        }
        text.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return true;
}

std::string appendToLogFile(char const* path, std::string_view record) {
    LogFile const file(path);
    for (auto const step : {&LogFile::check, &LogFile::lock}) {
        if (auto reason = (file.*step)(); !reason.empty()) {
            return reason;
        }
    }
    return file.append(record);
}

} // namespace kivo::kernel
