#include "kernel/kvProcessInit.h"

#include "manager/FileSystemVisitor.h"

#include "kernel/kvFiles.h"
#include "kernel/kvKivo.h"
#include "schema/ContractChecks.h"

#include <cerrno>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>

#include <sys/stat.h>

namespace kivo::configuration {

namespace {

// Paths are POSIX paths, so the kernel's separator is the slash, too.
constexpr char DIRECTORY_SEPARATOR = '/';
constexpr char const* CURRENT_DIR = "/.";
constexpr char const* PARENT_DIR = "/..";

} // namespace

/// Identifies directories by device and inode, since several paths can lead to one directory.
class FileSystemVisitor::EnteredDirectories {
public:
    /// @return whether a directory is entered for the first time; one that cannot be examined is not entered
    bool enter(std::string const& path) {
        struct stat status {};
        if (::stat(path.c_str(), &status) != 0) {
            auto const reason = std::generic_category().message(errno);
            kvKivo::addToMainLog("Kernel", ("Directory \"" + path + "\" cannot be examined: " + reason).c_str());
            return false;
        }
        return mEntered.emplace(status.st_dev, status.st_ino).second;
    }

private:
    std::set<std::pair<dev_t, ino_t>> mEntered;
};

bool FileSystemVisitor::visitDirectory(char const*) { return true; }

bool FileSystemVisitor::visitFile(char const*) { return true; }

bool FileSystemVisitor::scan(char const* directory, bool recursive) {
    KIVO_REQUIRE(directory != 0 && *directory != 0);
    EnteredDirectories entered;
    return scanInto(entered, directory, recursive);
}

bool FileSystemVisitor::scanInto(EnteredDirectories& entered, std::string const& directory, bool recursive) {
    if (!entered.enter(directory)) {
        return true;
    }
    kvDirListingPointer const listing(kvLocalOpenDir(directory.c_str()));
    if (!listing) {
        return true;
    }
    auto prefix = directory;
    if (!prefix.ends_with(DIRECTORY_SEPARATOR)) {
        prefix += DIRECTORY_SEPARATOR;
    }
    while (auto const* name = listing->next()) {
        if (!scanEntry(entered, prefix + name, recursive)) {
            return false;
        }
    }
    return true;
}

bool FileSystemVisitor::scanEntry(EnteredDirectories& entered, std::string const& path, bool recursive) {
    if ((kvLocalExists(path.c_str()) & KV_FILE_DIRECTORY) == 0) {
        return visitFile(path.c_str());
    }
    if (!recursive || endsWith(path.c_str(), CURRENT_DIR) || endsWith(path.c_str(), PARENT_DIR)) {
        return true;
    }
    return visitDirectory(path.c_str()) && scanInto(entered, path, true);
}

bool FileSystemVisitor::endsWith(char const* s, char const* suffix) {
    KIVO_REQUIRE(s != 0);
    KIVO_REQUIRE(suffix != 0);
    return std::string_view(s).ends_with(suffix);
}

} // namespace kivo::configuration
