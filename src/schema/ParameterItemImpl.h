#pragma once

#include <configuration/ParameterItem.h>

#include "schema/StoredOrigin.h"

#include <memory>
#include <string>

namespace kivo::configuration {

/// The state of an item. Each kind of item derives from it, so that an item has one block of state.
class ParameterItem::Impl {
public:
    Impl() = default;
    virtual ~Impl() = default;
    Impl(Impl const&) = delete;
    Impl& operator=(Impl const&) = delete;

    char const* getName() const { return mName ? mName.get() : mId.c_str(); }

    // Requests read the state of every item: what they seldom need is a pointer only.
    std::string mId;
    std::unique_ptr<char[]> mName; // null when it is the id, as it mostly is
    std::unique_ptr<char[]> mDescription;
    bool mOptional = false;
    bool mUnbounded = false;
    StoredOrigin mDeclaration; // unknown: the application's
};

} // namespace kivo::configuration
