#pragma once

#include <configuration/Export.h>
#include <configuration/ValueGroup.h>

#include <memory>

namespace kivo::configuration {

/// A handle that steps through the occurrences of a container: `while (it.next()) use(it.getValue("size"));`
///
/// What it inherits from ValueGroup reads the occurrence that it stands on. Occurrences are told by the schema group
/// that they are bound to; unbound groups are passed over.
class KIVO_CONFIGURATION_API ValueGroupIterator : public ValueGroup {
public:
    /// Stands before the first occurrence.
    /// @param parent the group to search, or null for a handle without occurrences; not owned
    /// @param id     id of the container, copied; letter case is ignored; null finds nothing
    ValueGroupIterator(ParameterValueGroup const* parent, char const* id);
    /// A handle on the same occurrence: the position is copied.
    ValueGroupIterator(ValueGroupIterator const& other);
    /// Makes this a handle on the same occurrence.
    ValueGroupIterator& operator=(ValueGroupIterator const& other);
    ~ValueGroupIterator() override;

    /// The occurrence that is read.
    /// @throws ConfigurationException "Must call next() before dereferencing an iterator",
    ///         "Dereferencing iterator after next() returns false"
    ParameterValueGroup const* getCurrentValueGroup() const override;

    /// Steps to the next occurrence. @return whether there is one; false without a parent
    bool next();

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
