#include "kernel/kvFiles.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace {

class DirListing final : public kvDirListing {
public:
    explicit DirListing(std::vector<std::string> names) : mNames(std::move(names)) {}

    char const* next() override { return mNext == mNames.size() ? nullptr : mNames[mNext++].c_str(); }

    void close() override { delete this; }

private:
    ~DirListing() = default;

    std::vector<std::string> mNames;
    std::size_t mNext = 0;
};

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

// Whether a failed examination means that nothing can be there, and not that it could not be examined.
bool meansMissing(int error) { return error == ENOENT || error == ENOTDIR || error == ELOOP || error == ENAMETOOLONG; }

} // namespace

int kvLocalExists(char const* path) {
    struct stat status {};
    if (!path) {
        return KV_FILE_MISSING;
    }
    if (stat(path, &status) != 0) {
        return meansMissing(errno) ? KV_FILE_MISSING : 0;
    }
    if (S_ISDIR(status.st_mode)) {
        return KV_FILE_DIRECTORY;
    }
    return S_ISREG(status.st_mode) ? 0 : KV_FILE_SPECIAL;
}

kvDirListing* kvLocalOpenDir(char const* path) {
    std::unique_ptr<DIR, CloseDirectory> const directory(path ? opendir(path) : nullptr);
    if (!directory) {
        return nullptr;
    }
    // Read at once and sorted: a caller that descends while it lists holds no descriptor per level, and what it finds
    // does not depend on the order in which the file system happens to keep the entries.
    std::vector<std::string> names;
    while (dirent const* const entry = readdir(directory.get())) {
        names.emplace_back(entry->d_name);
    }
    std::sort(names.begin(), names.end());
    return new DirListing(std::move(names));
}
