#pragma once

#include <configuration/Export.h>
#include <configuration/ParameterGroup.h>

namespace kivo::configuration {

/// A registered group in a refined form, for use in one place. It shares the id of its base, its name is that id, and
/// it starts without items: add those that the refining specification wants.
///
/// In addition to what each documents, the factories throw kivo::ContractViolationException "id != 0",
/// "objectKey != 0 && *objectKey != '\0'", and ConfigurationException "Invalid item type. Expected: 1, found: 0",
/// "Duplicate item \"<id>\"".
class KIVO_CONFIGURATION_API ParameterGroupSpecialization : public ParameterGroup {
public:
    /// Builds a specialization without registering it; tools use the factories.
    /// @throws kivo::ContractViolationException as ParameterItem
    ParameterGroupSpecialization(char const* id, char const* description, bool optional,
                                 ItemsExclusiveType itemsExclusive, bool unbounded, GroupType groupType);
    ~ParameterGroupSpecialization() override;

    /// True.
    bool isSpecialized() const override;

    /// Refines a group constraint; the Manager owns the result. Takes the base's description.
    /// @throws ConfigurationException "Group to specialize \"<id>\" was not found",
    ///         "Group to specialize \"<id>\" is not a group constraint"
    static ParameterGroupSpecialization* CreateGroup(char const* id);
    /// Refines a mutually exclusive constraint; the Manager owns the result.
    /// @param description null takes the base's
    /// @throws ConfigurationException "Mutually Exclusive to specialize \"<id>\" was not found",
    ///         "Mutually Exclusive to specialize \"<id>\" is not a mutually exclusive constraint"
    static ParameterGroupSpecialization* CreateMutuallyExclusive(char const* id, char const* description,
                                                                 bool optional);
    /// Refines a container; the Manager owns the result.
    /// @param description null takes the base's
    /// @throws ConfigurationException "Container to specialize \"<id>\" was not found",
    ///         "Container to specialize \"<id>\" is not a container"
    static ParameterGroupSpecialization* CreateContainer(char const* id, char const* description, bool optional,
                                                         bool unbounded);
};

} // namespace kivo::configuration
