#include "kernel/standalone/PluginFiles.h"

#include "kernel/kvFiles.h"
#include "kernel/standalone/FileErrors.h"

#include <algorithm>
#include <cerrno>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include <sys/stat.h>

namespace kivo::kernel {

namespace {

/// What a file or directory is, whatever path leads to it.
using Identity = std::pair<dev_t, ino_t>;

/// Enters the directories in the byte order of their paths, from a list instead of by recursion. So each is entered by
/// its smallest path, with which every path below it begins, and no depth of the tree exhausts the stack.
class PluginFileSearch {
public:
    explicit PluginFileSearch(std::string const& root) {
        consider(root);
        while (!mPending.empty()) {
            auto const next = mPending.extract(mPending.begin());
            if (mEntered.insert(next.mapped()).second) {
                list(next.key());
            }
        }
    }

    std::vector<std::string> takeFiles() {
        std::sort(mFiles.begin(), mFiles.end());
        std::vector<std::string> paths;
        std::set<Identity> seen;
        for (auto& [path, identity] : mFiles) {
            if (seen.insert(identity).second) {
                paths.push_back(std::move(path));
            }
        }
        return paths;
    }

private:
    void list(std::string const& directory) {
        kvDirListingPointer const listing(kvLocalOpenDir(directory.c_str()));
        if (!listing) {
            return;
        }
        auto const prefix = directory.ends_with('/') ? directory : directory + '/';
        while (auto const* name = listing->next()) {
            if (std::string_view(name) != "." && std::string_view(name) != "..") {
                consider(prefix + name);
            }
        }
    }

    void consider(std::string const& path) {
        struct stat status {};
        if (stat(path.c_str(), &status) != 0) {
            logFileError("File", path, "cannot be examined", errno);
            return;
        }
        Identity const identity(status.st_dev, status.st_ino);
        if (S_ISDIR(status.st_mode)) {
            mPending.emplace(path, identity);
        } else if (S_ISREG(status.st_mode) && path.ends_with(".so")) {
            mFiles.emplace_back(path, identity);
        }
    }

    std::set<Identity> mEntered;
    std::map<std::string, Identity> mPending;
    std::vector<std::pair<std::string, Identity>> mFiles;
};

} // namespace

std::vector<std::string> findPluginFiles(std::string const& root) { return PluginFileSearch(root).takeFiles(); }

} // namespace kivo::kernel
