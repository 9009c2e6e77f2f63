#pragma once

#include <configuration/Export.h>
#include <configuration/Origin.h>
#include <configuration/ParameterValueItem.h>

#include <cstddef>

namespace kivo::configuration {

class Parameter;
class ParameterGroup;
class ParameterValue;
class StoredOrigin;

/// A node with children, which it owns. Children are found by id, ignoring letter case, the first one in order; finding
/// takes about constant time however many there are.
class KIVO_CONFIGURATION_API ParameterValueGroup : public ParameterValueItem {
public:
    /// A group bound to a schema group, without children.
    /// @throws kivo::ContractViolationException "mParameterItem != 0"
    explicit ParameterValueGroup(ParameterGroup const* group);
    /// An unbound group without children. @param id the id, copied; null counts as empty
    explicit ParameterValueGroup(char const* id);
    /// The unnamed group that stands above the groups of specifications.
    explicit ParameterValueGroup(std::nullptr_t);
    /// A deep copy.
    ParameterValueGroup(ParameterValueGroup const& other);
    /// A copy with or without the children; the new group is the parent of the copied children.
    ParameterValueGroup(ParameterValueGroup const& other, CopyMethod method);
    /// Replaces all by a deep copy of the other; assigning a group to itself does nothing.
    ParameterValueGroup& operator=(ParameterValueGroup const& other);
    /// Destroys the children.
    ~ParameterValueGroup() override;

    char const* getParameterItemId() const override;
    /// PARAMETER_VALUE_GROUP.
    ItemType getItemType() const override;
    /// Walks the group and all below it, in the order that ParameterValueVisitor describes.
    /// @return false exactly when visitGroupStart() declined this group
    bool accept(ParameterValueVisitor& visitor) override;
    ParameterValueGroup* clone(CopyMethod method) const override;

protected:
    /// Binds the group to a schema group.
    /// @throws kivo::ContractViolationException "parameterItem != 0"
    /// @throws ConfigurationException "\"<name>\" must be a parameter group"
    void assignParameterItem(ParameterItem const* parameterItem) override;

public:
    /// The schema group that the group is bound to. Null when it is unbound, and when a caller's own item, which is no
    /// ParameterGroup, was bound to it.
    ParameterGroup const* getParameterGroup() const;
    /// The number of children.
    unsigned long getNumberOfItems() const;

    /// Appends a child and takes ownership of it, even when memory runs out.
    /// @throws kivo::ContractViolationException "item != 0"
    void addItem(ParameterValueItem* item);
    /// Appends a text to the child of an id; makes an unbound ParameterValue when there is no such child.
    /// @param value the text, copied; null makes the entry absent
    /// @throws kivo::ContractViolationException "parameterItemId != 0 && *parameterItemId != '\0'"
    /// @throws ConfigurationException "\"<parameterItemId>\" is not a parameter value": the child is a group
    void addValue(char const* parameterItemId, char const* value);
    /// As above, with the origin of the text.
    void addValue(char const* parameterItemId, char const* value, Origin const& origin);

    /// The child at a position, counted from 0 in the order of addition.
    /// @throws kivo::ContractViolationException "index < getNumberOfItems()"
    ParameterValueItem* getItem(unsigned long index) const;
    /// The first child of an id, or null.
    /// @throws kivo::ContractViolationException "parameterItemId != 0"
    ParameterValueItem* getItem(char const* parameterItemId) const;
    /// The first child with the id of a schema item, or null.
    /// @throws kivo::ContractViolationException "parameterItem != 0"
    ParameterValueItem* getItem(ParameterItem const* parameterItem) const;
    /// The first child whose id is this name, as a value; null when there is none.
    /// @throws kivo::ContractViolationException "name != 0 && strlen(name) > 0"
    /// @throws ConfigurationException "\"<name>\" is not a parameter value": the child is a group
    ParameterValue* getValue(char const* name) const;
    /// The first child whose id is the name (not the id) of a parameter, as a value; null when there is none.
    /// @throws kivo::ContractViolationException "parameter != 0"
    /// @throws ConfigurationException as above
    ParameterValue* getValue(Parameter const* parameter) const;

    /// Takes the child at a position out without destroying it: it belongs to the caller now, and has no parent.
    /// @throws kivo::ContractViolationException "index < mItems.size()"
    void removeItem(unsigned long index);
    /// Takes the first child of an id out without destroying it: it belongs to the caller now, and has no parent.
    /// @return false when there is none
    /// @throws kivo::ContractViolationException "parameterItemId != 0"
    bool removeItem(char const* parameterItemId);

    /// Where the group was given: the element of a values file, the application. It stays with the group through
    /// copies, matching and merging; of groups that are merged, that of the first one. Unknown for a group that the
    /// library adds, and until somebody calls setOrigin(); the Manager does so for what a provider says nothing about.
    Origin getOrigin() const;
    /// Says where the group was given.
    void setOrigin(Origin const& origin);

    /// As getOrigin(), without a conversion.
    KIVO_CONFIGURATION_LOCAL StoredOrigin const& getStoredOrigin() const;
    /// As setOrigin(), without a conversion.
    KIVO_CONFIGURATION_LOCAL void setStoredOrigin(StoredOrigin const& origin);
    /// As addValue(), with an origin.
    KIVO_CONFIGURATION_LOCAL void addValueAt(char const* parameterItemId, char const* value,
                                             StoredOrigin const& origin);

private:
    friend class ParameterValueItem;
    friend class ItemTaker;
    friend class ChildSearch;

    /// The id of a child changed.
    KIVO_CONFIGURATION_LOCAL void childIdChanged();
    /// Whether an item is below this group.
    KIVO_CONFIGURATION_LOCAL bool isAbove(ParameterValueItem const& item) const;

    class KIVO_CONFIGURATION_LOCAL Impl;
    Impl* mImpl; // the state that the base owns
};

} // namespace kivo::configuration
