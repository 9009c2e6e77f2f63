#include "kernel/standalone/kvPluginFiles.h"

#include "kernel/kvFiles.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace {

using Identity = std::pair<dev_t, ino_t>;

Identity identityOf(struct stat const& status) { return {status.st_dev, status.st_ino}; }

struct CloseListing {
    void operator()(kvDirListing* listing) const { listing->close(); }
};

// Enters the directories in the byte order of their paths, from a list instead of by recursion: so each is entered by
// its smallest path, which every path below it begins with, and no depth of the tree exhausts the stack.
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
        std::unique_ptr<kvDirListing, CloseListing> const listing(kvLocalOpenDir(directory.c_str()));
        if (!listing) {
            return;
        }
        std::string const prefix = directory.ends_with('/') ? directory : directory + '/';
        while (char const* const name = listing->next()) {
            if (std::string_view(name) != "." && std::string_view(name) != "..") {
                consider(prefix + name);
            }
        }
    }

    void consider(std::string const& path) {
        struct stat status {};
        if (stat(path.c_str(), &status) != 0) {
            return;
        }
        if (S_ISDIR(status.st_mode)) {
            mPending.emplace(path, identityOf(status));
        } else if (S_ISREG(status.st_mode) && path.ends_with(".so")) {
            mFiles.emplace_back(path, identityOf(status));
        }
    }

    std::set<Identity> mEntered;
    std::map<std::string, Identity> mPending;
    std::vector<std::pair<std::string, Identity>> mFiles;
};

} // namespace

std::vector<std::string> kvFindPluginFiles(std::string const& root) { return PluginFileSearch(root).takeFiles(); }
