#include "kernel/kvProcessInit.h"

#include "registry/xml/XmlInput.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace kivo::configuration {

namespace {

std::string describeError(int error) {
    switch (error) {
    case ENOENT: return "the file does not exist";
    case EACCES: return "the file may not be read";
    default: return "the file cannot be read (system error " + std::to_string(error) + ")";
    }
}

} // namespace

XmlInput::XmlInput(char const* path) {
    struct stat status;
    bool isFound = stat(path, &status) == 0;
    // Looked at before it is opened, since opening can have effects, and after, since the path may lead elsewhere by
    // then.
    if (isFound && S_ISREG(status.st_mode)) {
        mFile.number = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        isFound = mFile.number >= 0 && fstat(mFile.number, &status) == 0;
    }
    if (!isFound) {
        mProblem = describeError(errno);
    } else if (!S_ISREG(status.st_mode)) {
        mProblem = "this is not a regular file";
    } else {
        mExpectedSize = static_cast<std::size_t>(status.st_size);
    }
}

XmlInput::File::~File() {
    if (number >= 0) {
        close(number);
    }
}

std::optional<std::string_view> XmlInput::readOn(std::size_t size) {
    if (mCapacity - mKeptSize < size) {
        mCapacity = std::max(mKeptSize + size, 2 * mKeptSize);
        auto larger = std::make_unique_for_overwrite<char[]>(mCapacity);
        std::ranges::copy(getKept(), larger.get());
        mKept = std::move(larger);
    }
    auto const [count, hasFailed] = readFile(mKept.get() + mKeptSize, size);
    mKeptSize += count;
    if (hasFailed) {
        mProblem = describeError(errno);
        return std::nullopt;
    }
    return getKept().substr(mKeptSize - count);
}

std::unique_ptr<char[]> XmlInput::takeKept() { return std::move(mKept); }

std::optional<std::size_t> XmlInput::copy(char* buffer, std::size_t size) {
    auto const kept = getKept().substr(mCopied).substr(0, size);
    std::ranges::copy(kept, buffer);
    mCopied += kept.size();
    auto const [count, hasFailed] = readFile(buffer + kept.size(), size - kept.size());
    auto const copied = kept.size() + count;
    return hasFailed && copied == 0 ? std::nullopt : std::optional(copied);
}

/// Reads until the buffer is full or the file ends.
XmlInput::Outcome XmlInput::readFile(char* buffer, std::size_t size) {
    std::size_t count = 0;
    while (count < size && !mIsAtEnd) {
        auto const length = ::read(mFile.number, buffer + count, size - count);
        if (length < 0 && errno != EINTR) {
            return {count, true};
        }
        count += static_cast<std::size_t>(std::max<ssize_t>(length, 0));
        mIsAtEnd = length == 0;
    }
    return {count, false};
}

} // namespace kivo::configuration
