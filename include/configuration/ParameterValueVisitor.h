#pragma once

#include <configuration/Export.h>
#include <configuration/ParameterValueItem.h>

namespace kivo::configuration {

class ParameterItem;
class ParameterValue;
class ParameterValueGroup;

/// Base of everything that walks a value tree, given to ParameterValueItem::accept().
///
/// The walk is depth-first and in order. For a group: visitGroupStart(); if that returned true, each child, and
/// visitGroupEnd(). If it returned false, neither the children nor the end of that group are visited. What the calls
/// for a child return does not stop its siblings.
///
/// A mutator walks a copy of each list of children, taken after visitGroupStart(), and may change any list meanwhile:
/// children added are not visited, children detached still are, so a detached child must live until visitGroupEnd() of
/// the group it was taken from. A visitor that is not a mutator must not change any list.
class KIVO_CONFIGURATION_API ParameterValueVisitor {
public:
    /// @param isMutator whether the visitor changes the lists of children
    explicit ParameterValueVisitor(bool isMutator);
    virtual ~ParameterValueVisitor();

    /// A group begins. @return whether its children are to be visited; true here
    virtual bool visitGroupStart(ParameterValueGroup& group);
    /// A group that was entered ends; nothing here.
    virtual void visitGroupEnd(ParameterValueGroup& group);
    /// A value. @return what ParameterValue::accept() returns; true here
    virtual bool visitParameterValue(ParameterValue& value);

    /// Whether the visitor changes the lists of children.
    bool isMutator() const;

protected:
    /// A copy of a mutator is a mutator.
    ParameterValueVisitor(ParameterValueVisitor const&) = default;
    /// Makes this a mutator exactly when the other is one.
    ParameterValueVisitor& operator=(ParameterValueVisitor const&) = default;

    /// Replaces the stored id of an item.
    /// @throws kivo::ContractViolationException "parameterItemId != 0 && *parameterItemId != '\0'"
    void setParameterItemId(ParameterValueItem& item, char const* parameterItemId);
    /// Sets the state of an item, and nothing else.
    void setItemState(ParameterValueItem& item, ParameterValueItem::ItemState state);
    /// Binds an item to a schema item.
    /// @throws kivo::ContractViolationException "parameterItem != 0"
    /// @throws ConfigurationException "\"<name>\" must be a parameter", "\"<name>\" must be a parameter group"
    void assignParameterItem(ParameterValueItem& item, ParameterItem const* parameterItem);

    /// The group whose child an item is, or null. Unlike the item's parent, never one that is gone.
    KIVO_CONFIGURATION_LOCAL static ParameterValueGroup* holderOf(ParameterValueItem const& item);

private:
    bool mMutator;
};

} // namespace kivo::configuration
