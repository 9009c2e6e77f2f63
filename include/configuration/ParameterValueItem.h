#pragma once

#include <configuration/Export.h>

#include <memory>

namespace kivo::configuration {

class ParameterItem;
class ParameterValueGroup;
class ParameterValueVisitor;
class ParameterVisitor;

/// A node of a value tree: a ParameterValue or a ParameterValueGroup.
///
/// An item starts as an id that somebody wrote (a flag, an element name) and is later bound to the schema item that the
/// id names. The schema item is not owned and must outlive the tree. Not synchronized: one thread builds and changes a
/// tree; a finished one may be read by any number of threads.
class KIVO_CONFIGURATION_API ParameterValueItem {
public:
    /// The kind of a node.
    enum ItemType {
        PARAMETER_VALUE = 0,      ///< a ParameterValue
        PARAMETER_VALUE_GROUP = 1 ///< a ParameterValueGroup
    };
    /// Whether the node is bound to its schema item.
    enum ItemState {
        NOT_ASSIGNED = 0, ///< known by its id only
        ASSIGNED = 1      ///< bound
    };
    /// What a copy of a group holds; a value is copied whole either way.
    enum CopyMethod {
        DEEP_COPY = 0,   ///< copies of all items, recursively
        SHALLOW_COPY = 1 ///< no items
    };

    virtual ~ParameterValueItem();

    /// The id of the bound schema item; when unbound the stored id, or null if that is empty. Lives until the node is
    /// bound, renamed or destroyed.
    virtual char const* getParameterItemId() const;
    /// Which of the two kinds this is.
    virtual ItemType getItemType() const = 0;
    /// Lets a visitor see this node; ParameterValueVisitor describes the order of calls.
    virtual bool accept(ParameterValueVisitor& visitor) = 0;
    /// A new node for the caller to own, or to hand to ParameterValueGroup::addItem(). Until a group takes it, its
    /// parent is that of this node, which must not be used once that group may be gone. This is true of every copy.
    virtual ParameterValueItem* clone(CopyMethod method) const = 0;

    /// Whether the node was bound, by matching or by its constructor.
    ItemState getItemState() const;
    /// The schema item that the node is bound to, or null. Owned by the Manager.
    ParameterItem const* getParameterItem() const;
    /// The group that holds the node, or null; of a copy that no group holds yet, what it was for the source.
    ParameterValueGroup* getParentGroup() const;

protected:
    /// An unbound node. @param id the id, copied; null counts as empty
    explicit ParameterValueItem(char const* id);
    /// A bound node that takes its id from the schema item.
    /// @throws kivo::ContractViolationException "mParameterItem != 0"
    explicit ParameterValueItem(ParameterItem const* item);
    /// Copies id, state, binding and parent.
    ParameterValueItem(ParameterValueItem const& other);
    /// As the copy constructor.
    ParameterValueItem(ParameterValueItem const& other, CopyMethod method);

    class KIVO_CONFIGURATION_LOCAL Impl;
    /// As the first constructor. `impl` is the state of the whole node: a derived class puts its own fields there, too.
    KIVO_CONFIGURATION_LOCAL ParameterValueItem(std::unique_ptr<Impl> impl, char const* id);
    /// As the second constructor, with the state of the whole node.
    KIVO_CONFIGURATION_LOCAL ParameterValueItem(std::unique_ptr<Impl> impl, ParameterItem const* item);
    /// As the copy constructor, with the state of the whole node.
    KIVO_CONFIGURATION_LOCAL ParameterValueItem(std::unique_ptr<Impl> impl, ParameterValueItem const& other);
    /// The state given at construction.
    KIVO_CONFIGURATION_LOCAL Impl* getImpl() const noexcept;

    /// Copies id, state and binding. Copies the parent, too, unless a group holds this node.
    ParameterValueItem& operator=(ParameterValueItem const& other);

    /// Binds the node, whose id is that of the schema item from then on. Reached through the helpers of the visitors.
    /// @throws kivo::ContractViolationException "parameterItem != 0"
    virtual void assignParameterItem(ParameterItem const* parameterItem);
    /// Replaces the id of a node that is not bound.
    /// @throws kivo::ContractViolationException "parameterItemId != 0 && *parameterItemId != '\0'"
    void setParameterItemId(char const* parameterItemId);
    /// Sets the state, and nothing else.
    void setItemState(ItemState state);
    /// Sets the parent, and nothing else.
    /// @throws kivo::ContractViolationException "parentGroup != 0"
    void setParentGroup(ParameterValueGroup* parentGroup);

private:
    friend class ParameterValueGroup;
    friend class ParameterValueVisitor;
    friend class ParameterVisitor;

    /// A group took the item into its list of children, or (null) let it go.
    KIVO_CONFIGURATION_LOCAL void setHolder(ParameterValueGroup* group);
    /// The group whose child the item is, or null. Unlike the parent, never one that is gone.
    KIVO_CONFIGURATION_LOCAL ParameterValueGroup* getHolder() const;
    /// Tells the group that holds the item that it may now be found by another id.
    KIVO_CONFIGURATION_LOCAL void idChanged();

    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
