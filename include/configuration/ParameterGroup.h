#pragma once

#include <configuration/Export.h>
#include <configuration/ParameterItem.h>

namespace kivo::configuration {

/// An item that holds other items, in one of three roles:
/// - a group constraint (CONSTRAINT, not exclusive): its items belong together;
/// - a mutually exclusive constraint (CONSTRAINT, exclusive): at most one of its items may be given;
/// - a container (CONTAINER): a named section, which may repeat and is a level of nesting of the values.
///
/// Made by one of the factories, which register it with the Manager; the Manager owns it. A group does not own its
/// items, and an item may stand in several groups. Not synchronized: groups are filled on one thread and may then be
/// read by any number of threads.
class KIVO_CONFIGURATION_API ParameterGroup : public ParameterItem {
public:
    /// Whether the group is a level of nesting of the values.
    enum GroupType {
        CONSTRAINT = 0, ///< its values are given directly in the enclosing container
        CONTAINER = 1   ///< its values are nested in a group of their own
    };
    /// Whether more than one item may be given.
    enum ItemsExclusiveType {
        ITEMS_NOT_EXCLUSIVE = 0,     ///< any number
        ITEMS_MUTUALLY_EXCLUSIVE = 1 ///< at most one
    };

    /// Builds an empty group without registering it; tools use the factories.
    /// @throws kivo::ContractViolationException as ParameterItem
    ParameterGroup(char const* id, char const* name, char const* description, bool optional,
                   ItemsExclusiveType itemsExclusive, bool unbounded, GroupType groupType);
    /// Frees the list, never the items.
    ~ParameterGroup() override;

    /// PARAMETER_GROUP.
    ItemType getItemType() const override;
    bool isOptional() const override;
    bool isUnbounded() const override;
    char const* getId() const override;
    char const* getName() const override;
    char const* getDescription() const override;
    void setDescription(char const* description) override;
    /// Walks the group and all below it, in the order that ParameterVisitor describes.
    /// @return false exactly when visitGroupStart() declined this group
    /// @throws kivo::ContractViolationException "index < getNumberOfItems()" when the visitor removed items meanwhile
    bool accept(ParameterVisitor& visitor) const override;
    /// False.
    bool isSpecialized() const override;

    /// "Container" for a container, else "Constraint".
    virtual char const* getItemTypeName() const;

    /// Container or constraint.
    GroupType getGroupType() const;
    /// Whether at most one item may be given.
    bool itemsAreExclusive() const;
    /// The number of direct items.
    unsigned long getNumberOfItems() const;

    /// Appends an item, which is not owned and must outlive the group's use. An item that is there already is added
    /// again.
    /// @throws kivo::ContractViolationException "item != 0"
    void addItem(ParameterItem* item);
    /// Takes the first direct item of an id (letter case ignored) out of the list without deleting it.
    /// @return the item, or null when there is none
    /// @throws kivo::ContractViolationException "id != 0"
    ParameterItem* removeItem(char const* id);
    /// The direct item at a position, counted from 0 in the order of addition.
    /// @throws kivo::ContractViolationException "index < getNumberOfItems()"
    ParameterItem* getItem(unsigned long index) const;
    /// The first item of an id (letter case ignored), or null.
    /// @param recursive false: among the direct items; true: the first one that a walk by accept() shows, a group
    ///                  before its items, this group included
    /// @throws kivo::ContractViolationException "id != 0"
    ParameterItem* getItem(char const* id, bool recursive) const;

    /// Makes and registers a group constraint, which is always optional and never unbounded.
    /// @throws kivo::ContractViolationException as for Parameter::Create()
    /// @throws ConfigurationException "Group id \"<id>\" is not unique": a group of any role has it; a parameter may
    static ParameterGroup* CreateGroup(char const* id, char const* name, char const* description);
    /// Makes and registers a container.
    /// @throws kivo::ContractViolationException as for Parameter::Create()
    /// @throws ConfigurationException "Container id \"<id>\" is not unique"
    static ParameterGroup* CreateContainer(char const* id, char const* name, char const* description, bool optional,
                                           bool unbounded);
    /// Makes and registers a mutually exclusive constraint, which is never unbounded.
    /// @param description null stands for a single blank
    /// @param optional    whether none of the items need be given
    /// @throws kivo::ContractViolationException as for Parameter::Create()
    /// @throws ConfigurationException "Mutually Exclusive id \"<id>\" is not unique"
    static ParameterGroup* CreateMutuallyExclusive(char const* id, char const* name, char const* description,
                                                   bool optional);

private:
    friend class SchemaIndex;
    class KIVO_CONFIGURATION_LOCAL Impl;
    Impl* mImpl; // the state that the base owns
};

} // namespace kivo::configuration
