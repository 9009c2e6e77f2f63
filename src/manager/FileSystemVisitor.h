#pragma once

#include <string>

namespace kivo::configuration {

/// Base of classes that look through the files of a directory. Paths are POSIX paths.
class FileSystemVisitor {
public:
    /// Called for a directory below the one scanned, before its own entries. @return false to end the scan; true here
    virtual bool visitDirectory(char const* path);
    /// Called for anything that is not a directory. @return false to end the scan; true here
    virtual bool visitFile(char const* path);

    /// Shows the entries of a directory in the kernel's order. A directory that cannot be read has none, and the main
    /// log says why. However many links lead to a directory, its entries are shown once.
    /// @param recursive whether to enter the directories below, too
    /// @return false when the visitor ended the scan
    /// @throws kivo::ContractViolationException "directory != 0 && *directory != 0"
    bool scan(char const* directory, bool recursive);

    /// Whether a text ends with exactly these bytes.
    /// @throws kivo::ContractViolationException "s != 0", "suffix != 0"
    static bool endsWith(char const* s, char const* suffix);

protected:
    FileSystemVisitor() = default;
    ~FileSystemVisitor() = default;
    FileSystemVisitor(FileSystemVisitor const&) = default;
    FileSystemVisitor& operator=(FileSystemVisitor const&) = default;

private:
    class EnteredDirectories;
    bool scanInto(EnteredDirectories& entered, std::string const& directory, bool recursive);
    bool scanEntry(EnteredDirectories& entered, std::string const& path, bool recursive);
};

} // namespace kivo::configuration
