#pragma once

#include <configuration/Export.h>
#include <configuration/Origin.h>

#include <memory>

namespace kivo::configuration {

class ParameterGroup;
class StoredOrigin;

/// What one tool or component accepts. The items stand in the group that is registered under the specification's id.
///
/// Register it with Manager::registerSpecification(), which takes ownership.
class KIVO_CONFIGURATION_API Specification {
public:
    /// Copies the texts.
    /// @throws kivo::ContractViolationException "id != 0", "description != 0"
    Specification(char const* id, char const* description);
    ~Specification();

    /// The name under which values are asked for; letter case is ignored. Lives as long as the specification.
    char const* getId() const;
    /// What the specification is for. Lives as long as the specification.
    char const* getDescription() const;
    /// The group registered under this id, looked up anew on every call. Owned by the Manager.
    /// @throws ConfigurationException "Group \"<id>\" was not found in the registry",
    ///         "\"<id>\" is not a parameter group", "Duplicate item \"<id>\""
    ParameterGroup const* getParameterGroup() const;

    /// Where it was declared: FILE_SOURCE with the place of its element in a registry file, or APPLICATION_SOURCE.
    Origin getDeclarationOrigin() const;
    /// Says where it was declared.
    KIVO_CONFIGURATION_LOCAL void setDeclarationOrigin(StoredOrigin const& origin);

    /// Whether the ids are equal, ignoring letter case.
    bool operator==(Specification const& other) const;

    Specification(Specification const&) = delete;
    Specification& operator=(Specification const&) = delete;

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
