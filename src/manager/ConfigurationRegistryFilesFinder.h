#pragma once

#include "manager/FileSystemVisitor.h"
#include "schema/NameComparison.h"

#include <set>
#include <string>

namespace kivo::configuration {

/// Collects the registry files of directories: those with the extension ".crg", in lower case. Paths that differ only
/// in letter case count once.
class ConfigurationRegistryFilesFinder final : public FileSystemVisitor {
public:
    using Paths = std::set<std::string, CaseInsensitiveLess>;

    bool visitFile(char const* path) override;

    /// The files found, in the order of their paths, letter case ignored.
    Paths const& getPaths() const;

private:
    Paths mPaths;
};

} // namespace kivo::configuration
