#pragma once

#include <configuration/Export.h>
#include <configuration/Value.h>
#include <configuration/ValueIterator.h>

#include <memory>

namespace kivo::configuration {

class ParameterValueGroup;
class ValueGroupIterator;

/// A handle on the settings of a specification or of one of its containers, got from Manager::getValueGroup().
///
/// Owns nothing; see Value for its lifetime and for threads.
class KIVO_CONFIGURATION_API ValueGroup {
public:
    /// @param group the group to read, or null for a null handle; not owned
    /// @throws kivo::ContractViolationException
    ///         "!mValueGroup || mValueGroup->getItemType() == ParameterValueGroup::PARAMETER_VALUE_GROUP"
    explicit ValueGroup(ParameterValueGroup const* group);
    /// A handle on the same group.
    ValueGroup(ValueGroup const& other);
    /// Makes this a handle on the same group.
    ValueGroup& operator=(ValueGroup const& other);
    virtual ~ValueGroup();

    /// The group that is read.
    virtual ParameterValueGroup const* getCurrentValueGroup() const;

    /// Whether there is no group to read.
    bool isNull() const;
    /// The setting of a name (letter case is ignored); a null handle when it is not there.
    /// @throws ConfigurationException "Null ValueGroup" on a null handle; "\"<name>\" is not a parameter value"
    /// @throws kivo::ContractViolationException as Value: the setting has several texts, read it by getValueIterator()
    Value getValue(char const* name) const;
    /// The texts of a setting that may have several; null when it is not there.
    /// @throws ConfigurationException as getValue()
    ValueIterator getValueIterator(char const* name) const;
    /// The settings of a container that does not repeat.
    /// @throws ConfigurationException "Null ValueGroup"; "The \"<name>\" value group was not found"
    /// @throws kivo::ContractViolationException as the constructor: the name is that of a value
    ValueGroup getValueGroup(char const* name) const;
    /// The occurrences of a container that repeats. @param name id of the container; letter case is ignored
    /// @throws ConfigurationException "Null ValueGroup"
    ValueGroupIterator getValueGroupIterator(char const* name) const;

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
