#include "kernel/kvProcessInit.h"

#include <configuration/RegistryInspection.h>

#include "kernel/kvDirectories.h"
#include "lint/RegistryContents.h"
#include "lint/RegistryFileInspection.h"
#include "lint/SpecificationRemarks.h"
#include "lint/UnreadFiles.h"
#include "manager/ContextMgr.h"
#include "manager/InstallationPaths.h"
#include "manager/OwnRegistry.h"
#include "manager/RegistryFiles.h"
#include "registry/xml/XmlScope.h"
#include "schema/FaultCollection.h"

#include <configuration/ParameterErrors.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace kivo::configuration {

/// What an inspection found.
class RegistryInspection::Impl {
public:
    std::vector<Finding> findings;
    std::vector<std::string> files;
};

namespace {

std::string nameOf(std::string const& path) { return path.substr(path.rfind(directorySeparator()) + 1); }

bool isSameFile(std::string const& a, std::string const& b) {
    std::error_code ignored;
    return std::filesystem::equivalent(a, b, ignored);
}

/// Puts a file among those of the installation.
void place(std::vector<RegistryFile>& files, std::string const& path) {
    auto const isFree = [](RegistryFile const& file) { return file.place == file.path; };
    auto replaced = std::ranges::find_if(files, [&](RegistryFile const& file) { return isSameFile(file.place, path); });
    if (replaced == files.end()) {
        replaced = std::ranges::find_if(files, [&](RegistryFile const& file) {
            return isFree(file) && equalIgnoringCase(nameOf(file.place), nameOf(path));
        });
    }
    if (replaced != files.end()) {
        replaced->path = path;
        return;
    }
    auto const etc = installationDirectory(kvGetEtcDir);
    files.push_back({(etc.empty() ? std::string(1, directorySeparator()) : etc) + nameOf(path), path});
}

/// Does a step, and takes over what it throws. @return whether it was done
template <class Step>
bool collect(FindingList& findings, Rule rule, Step step) {
    ParameterErrors faults;
    bool const isDone = runOrCollect(&faults, rule, {}, step);
    for (unsigned long i = 0; i < faults.getNumberOfErrors(); ++i) {
        findings.add(Finding::ERROR_SEVERITY, rule, faults.getError(i), faults.getStoredOrigin(i));
    }
    return isDone;
}

void inspectFile(RegistryContents& contents, char const* path) {
    if (!collect(contents.findings, Rule::MISSING_FILE, [&] { requireRegistryFile(path); })) {
        contents.isIncomplete = true;
        return;
    }
    RegistryFileInspection(path, contents).run();
}

} // namespace

RegistryInspection::RegistryInspection(std::vector<std::string> const& files) {
    ContextMgr const context;
    OwnRegistry registry;
    RegistryContents contents;
    auto& findings = contents.findings;

    auto sequence = findRegistryFiles();
    std::ranges::for_each(files, [&](std::string const& path) { place(sequence, path); });
    sortInLoadingOrder(sequence);

    collect(findings, Rule::INVALID_REGISTRY, [&] { registry.getManager().registerDefaultValidators(); });
    collect(findings, Rule::MISSING_FILE, [&] { requireMainRegistry(sequence); });
    remarkOnUnreadFiles(findings);
    std::ranges::for_each(files, [&](std::string const& path) { remarkOnFileName(findings, path.c_str()); });

    auto const impl = std::make_shared<Impl>();
    XmlScope const scope;
    for (auto const& file : sequence) {
        impl->files.push_back(file.path);
        inspectFile(contents, file.path.c_str());
    }
    remarkOnSpecifications(contents);
    impl->findings = findings.take();
    mImpl = impl;
}

RegistryInspection::RegistryInspection(RegistryInspection const& other) noexcept = default;

RegistryInspection& RegistryInspection::operator=(RegistryInspection const& other) noexcept = default;

RegistryInspection::~RegistryInspection() = default;

std::vector<Finding> const& RegistryInspection::getFindings() const noexcept { return mImpl->findings; }

unsigned long RegistryInspection::getNumberOfFindings(Finding::Severity severity) const noexcept {
    return static_cast<unsigned long>(std::ranges::count(mImpl->findings, severity, &Finding::getSeverity));
}

std::vector<std::string> const& RegistryInspection::getFiles() const noexcept { return mImpl->files; }

} // namespace kivo::configuration
