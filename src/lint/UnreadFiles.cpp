#include "kernel/kvProcessInit.h"

#include "lint/UnreadFiles.h"

#include "inspection/FindingList.h"
#include "kernel/kvDirectories.h"
#include "manager/FileSystemVisitor.h"
#include "manager/InstallationPaths.h"
#include "manager/RegistryFiles.h"
#include "schema/NameComparison.h"

#include <filesystem>
#include <map>
#include <string>
#include <system_error>

namespace kivo::configuration {

namespace {

bool isNearlyRegistryFile(std::string_view path) {
    std::string_view const extension = REGISTRY_FILE_EXTENSION;
    return path.size() >= extension.size() && equalIgnoringCase(path.substr(path.size() - extension.size()), extension);
}

void add(FindingList& findings, std::string const& path, std::string const& message) {
    findings.add(Finding::WARNING_SEVERITY, Rule::UNREAD_FILE, message, StoredOrigin(Origin::FILE_SOURCE, path));
}

/// Looks for files that are passed over.
class UnreadFilesVisitor final : public FileSystemVisitor {
public:
    explicit UnreadFilesVisitor(FindingList& findings) : mFindings(findings) {}

    void scanAll(std::string const& directory, bool isRecursive) {
        if (!directory.empty()) {
            visitDirectory(directory.c_str());
            scan(directory.c_str(), isRecursive);
        }
    }

    /// Links that lead nowhere are not shown to visitors.
    bool visitDirectory(char const* path) override {
        namespace fs = std::filesystem;
        std::error_code ignored;
        for (fs::directory_iterator entry(path, ignored), end; entry != end; entry.increment(ignored)) {
            auto const name = entry->path().string();
            if (isNearlyRegistryFile(name) && entry->is_symlink(ignored) && !fs::exists(entry->path(), ignored)) {
                add(mFindings, name, "this link leads nowhere, so it is not read");
            }
        }
        return true;
    }

    bool visitFile(char const* path) override {
        if (!isNearlyRegistryFile(path)) {
            return true;
        }
        remarkOnFileName(mFindings, path);
        if (endsWith(path, REGISTRY_FILE_EXTENSION)) {
            auto const [known, isNew] = mKnown.try_emplace(path, path);
            if (!isNew && known->second != path) {
                add(mFindings, path,
                    "this file is not read: its path differs from \"" + known->second + "\" only in letter case");
            }
        }
        return true;
    }

private:
    FindingList& mFindings;
    std::map<std::string, std::string, CaseInsensitiveLess> mKnown;
};

} // namespace

void remarkOnUnreadFiles(FindingList& findings) {
    UnreadFilesVisitor visitor(findings);
    visitor.scanAll(installationDirectory(kvGetEtcDir), false);
    visitor.scanAll(installationDirectory(kvGetPluginsDir), true);
}

void remarkOnFileName(FindingList& findings, char const* path) {
    std::string_view const name = path;
    if (!name.empty() && !name.ends_with(REGISTRY_FILE_EXTENSION)) {
        add(findings, path, "no tool reads this file: names of registry files end in \".crg\", in lower case");
    }
}

} // namespace kivo::configuration
