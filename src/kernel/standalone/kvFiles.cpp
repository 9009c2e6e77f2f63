#include "kernel/kvFiles.h"

#include "kernel/standalone/FileErrors.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

using kivo::kernel::logFileError;
using Names = std::vector<std::string>;

class DirListing final : public kvDirListing {
public:
    explicit DirListing(Names names) : mNames(std::move(names)) {}

    char const* next() override { return mNext == mNames.size() ? nullptr : mNames[mNext++].c_str(); }

    void close() override { delete this; }

private:
    ~DirListing() = default;

    Names mNames;
    std::size_t mNext = 0;
};

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

/// Whether a failed examination means that nothing can be there, and not that it could not be examined.
bool meansMissing(int error) { return error == ENOENT || error == ENOTDIR || error == ELOOP || error == ENAMETOOLONG; }

/// The next entry of a directory; null at its end, with errno 0, and after an error.
dirent const* nextEntry(DIR* directory) {
    errno = 0;
    return readdir(directory);
}

/// Says why a directory has no listing. Memory that runs out is no property of the directory.
/// @throws std::bad_alloc
kvDirListing* refuseListing(char const* path, int error) {
    if (error == ENOMEM) {
        throw std::bad_alloc();
    }
    logFileError("Directory", path, "cannot be read", error);
    return nullptr;
}

/// The number of the reason why an entry is a link that leads nowhere; 0 when it is not.
int deadLinkReason(DIR* directory, dirent const& entry) {
    struct stat status {};
    auto const examine = [&](int flags) { return fstatat(dirfd(directory), entry.d_name, &status, flags) == 0; };
    bool const canBeLink = entry.d_type == DT_LNK || entry.d_type == DT_UNKNOWN;
    if (!canBeLink || !examine(AT_SYMLINK_NOFOLLOW) || !S_ISLNK(status.st_mode) || examine(0)) {
        return 0;
    }
    return meansMissing(errno) ? errno : 0;
}

} // namespace

int kvLocalExists(char const* path) {
    struct stat status {};
    if (!path) {
        return KV_FILE_MISSING;
    }
    if (stat(path, &status) != 0) {
        if (meansMissing(errno)) {
            return KV_FILE_MISSING;
        }
        logFileError("File", path, "cannot be examined", errno);
        return 0;
    }
    if (S_ISDIR(status.st_mode)) {
        return KV_FILE_DIRECTORY;
    }
    return S_ISREG(status.st_mode) ? 0 : KV_FILE_SPECIAL;
}

// Read at once and sorted: a caller that descends while it lists holds no descriptor per level, and what it finds does
// not depend on the order in which the file system happens to keep the entries.
kvDirListing* kvLocalOpenDir(char const* path) {
    if (!path) {
        return nullptr;
    }
    std::unique_ptr<DIR, CloseDirectory> const directory(opendir(path));
    if (!directory) {
        return refuseListing(path, errno);
    }
    Names names;
    while (auto const* entry = nextEntry(directory.get())) {
        if (auto const reason = deadLinkReason(directory.get(), *entry); reason != 0) {
            logFileError("Link", std::string(path) + '/' + entry->d_name, "is left out, since it leads nowhere",
                         reason);
        } else {
            names.emplace_back(entry->d_name);
        }
    }
    if (errno != 0) {
        return refuseListing(path, errno);
    }
    std::sort(names.begin(), names.end());
    return new DirListing(std::move(names));
}
