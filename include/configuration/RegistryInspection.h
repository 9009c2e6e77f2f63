#pragma once

#include <configuration/Export.h>
#include <configuration/Finding.h>

#include <memory>
#include <string>
#include <vector>

namespace kivo::configuration {

/// Everything that can be said about registry files: all faults of all files, and what loading passes over in silence.
///
/// The files are loaded as a tool's start loads them, with the validators of the installation, but into a registry of
/// the inspection's own, and a fault does not end the load. A declaration that is refused counts as declared, so that
/// faults which only follow from it are not reported. An inspection writes no record of a load to the main log, and
/// leaves the Manager, what it holds and whether there is one, as it was.
///
/// It may be read by any number of threads. While it is made, Manager::getInstance() gives the inspection's registry:
/// no other thread may use the Manager meanwhile. Validators that the application itself registers are not known.
class KIVO_CONFIGURATION_API RegistryInspection {
public:
    /// Inspects the registry files of the installation, with some of them replaced or added.
    /// @param files paths of registry files. Each takes the place of the installation's file that it is, else of the
    ///              first one that has its name, letter case ignored. A file of another name is read as if it lay in
    ///              the etc directory. A path that is empty or leads nowhere is a finding.
    /// @throws std::bad_alloc memory has run out
    explicit RegistryInspection(std::vector<std::string> const& files = {});
    /// The same inspection.
    RegistryInspection(RegistryInspection const& other) noexcept;
    /// Makes this the same inspection.
    RegistryInspection& operator=(RegistryInspection const& other) noexcept;
    ~RegistryInspection();

    /// All findings, each message once for a place. Errors are what loading refuses, with its own messages, at the
    /// declaration: the first one is what a tool's start throws, and there is none exactly when the installation loads.
    /// They stand in the order in which loading meets them. InspectionReport.h sorts and shows findings.
    std::vector<Finding> const& getFindings() const noexcept;
    /// How many of the findings are errors, or warnings.
    unsigned long getNumberOfFindings(Finding::Severity severity) const noexcept;
    /// The paths of the files that were read, in the order in which they are loaded.
    std::vector<std::string> const& getFiles() const noexcept;

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::shared_ptr<Impl const> mImpl;
};

} // namespace kivo::configuration
