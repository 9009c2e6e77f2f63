#pragma once

#include <configuration/ParameterValueItem.h>

#include <string>

namespace kivo::configuration {

/// The state of a node. Each kind of node derives from it, so that a node has one block of state.
class ParameterValueItem::Impl {
public:
    Impl() = default;
    virtual ~Impl() = default;
    Impl(Impl const&) = delete;
    Impl& operator=(Impl const&) = delete;

    std::string mParameterItemId; // the same as that of the schema item, but for letter case, when bound to one
    ParameterItem const* mParameterItem = nullptr;
    ParameterValueGroup* mParentGroup = nullptr;
    /// The group whose list the item is in. Not the same as the parent: a copy has the parent of its source at first,
    /// and that may be gone by the time the copy is changed.
    ParameterValueGroup* mHolder = nullptr;
    ItemState mItemState = NOT_ASSIGNED;
    bool mIsBoundToKind = false; // whether the schema item is a Parameter (of a value), a ParameterGroup (of a group)

    /// Copies the fields; an item in a list stays there, whatever the source's parent.
    void copyItem(Impl const& other) {
        mParameterItemId = other.mParameterItemId;
        mItemState = other.mItemState;
        mParameterItem = other.mParameterItem;
        mIsBoundToKind = other.mIsBoundToKind;
        mParentGroup = mHolder ? mHolder : other.mParentGroup;
    }
};

} // namespace kivo::configuration
