#pragma once

#include <configuration/ParameterItem.h>

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

    std::string mId;
    std::string mName;
    std::unique_ptr<char[]> mDescription; // a pointer only: requests read all but this, for every item
    bool mOptional = false;
    bool mUnbounded = false;
};

} // namespace kivo::configuration
