#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kivo::configuration {

/// The bytes of a file, each read once: what is read on is kept, and can be read again. So two
/// readers that come after each other see the same file, even one that changes in the meantime.
///
/// Only a regular file, links followed, is opened: a pipe would block, and a device may never end.
class XmlInput {
public:
    explicit XmlInput(char const* path);

    /// Why the file cannot be read, or not read on; empty when it can.
    std::string const& getProblem() const { return mProblem; }

    /// The size of the file when it was opened.
    std::size_t getExpectedSize() const { return mExpectedSize; }

    /// Reads on, and keeps what was read. Pointers into what was kept before are invalid then.
    /// @return what was read: less than `size` only at the end of the file; nothing when reading fails
    std::optional<std::string_view> readOn(std::size_t size);

    /// What is kept.
    std::string_view getKept() const { return {mKept.get(), mKeptSize}; }

    /// Hands over what is kept; nothing can be read then.
    std::unique_ptr<char[]> takeKept();

    /// Copies from the beginning of the file, or from where the last copy ended. Nothing is kept.
    /// @return how many bytes were copied: less than `size` only at the end of the file; nothing when reading fails
    std::optional<std::size_t> copy(char* buffer, std::size_t size);

private:
    /// A descriptor, closed in the end.
    class File {
    public:
        File() = default;
        ~File();
        File(File const&) = delete;
        File& operator=(File const&) = delete;

        int number = -1;
    };

    struct Outcome {
        std::size_t count;
        bool hasFailed;
    };

    Outcome readFile(char* buffer, std::size_t size);

    File mFile;
    bool mIsAtEnd = false;
    std::string mProblem;
    std::size_t mExpectedSize = 0;
    std::unique_ptr<char[]> mKept;
    std::size_t mKeptSize = 0;
    std::size_t mCapacity = 0;
    std::size_t mCopied = 0;
};

} // namespace kivo::configuration
