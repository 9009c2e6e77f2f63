#pragma once

#include <configuration/Export.h>
#include <configuration/Origin.h>

#include <cstdint>
#include <memory>

namespace kivo::configuration {

class ParameterValue;

/// A handle on the one text of a setting, got from ValueGroup::getValue().
///
/// A handle owns nothing: it is valid as long as the tree that it refers to, for handles of the Manager until
/// Manager::setApplicationValues(), Manager::reset() or Manager::shutdown(). A setting that was not given and has no
/// default yields a null handle.
///
/// The writers change the shared tree that the handle refers to, and so what every other handle on the setting reads.
/// Reading from several threads is safe as long as none writes.
class KIVO_CONFIGURATION_API Value {
public:
    /// @param value       the value to read, or null for a null handle; not owned
    /// @param multiValued whether getCurrentValueIndex() will pick one of several texts
    /// @throws kivo::ContractViolationException unless multiValued or null: "mValue->getParameterItem() != 0" (the
    ///         value is unbound), "mValue->getNumberOfValues() == 1" (read it through a ValueIterator)
    Value(ParameterValue const* value, bool multiValued);
    /// A handle on the same value.
    Value(Value const& other);
    /// Makes this a handle on the same value.
    Value& operator=(Value const& other);
    virtual ~Value();

    /// Reads a BOOLEAN_PARAMETER.
    /// @throws ConfigurationException "Value is null", as all readers and writers
    /// @throws kivo::ContractViolationException the parameter is of another type:
    ///         "mValue->getValueType() == Parameter::BOOLEAN_PARAMETER", as all, each with its type; or the value is
    ///         unbound: "mParameter != 0"
    virtual bool asBoolean() const;
    /// Reads a STRING_PARAMETER. Null when the entry has no text. Lives until the value changes.
    virtual char const* asString() const;
    /// Reads an INT_PARAMETER, or the number of an ENUM_PARAMETER's label.
    virtual int asInteger() const;
    /// Reads a UINT_PARAMETER.
    virtual unsigned int asUnsignedInteger() const;
    /// Reads a DOUBLE_PARAMETER.
    virtual double asDouble() const;
    /// Stores "1" or "0" for a BOOLEAN_PARAMETER. @return this handle
    virtual Value& setBoolean(bool value);
    /// Stores a copy of a text for a STRING_PARAMETER; null makes the entry absent. @return this handle
    virtual Value& setString(char const* value);
    /// Stores the decimal form for an INT_PARAMETER or (the number, not a label) an ENUM_PARAMETER. @return this handle
    virtual Value& setInteger(int value);
    /// Stores the decimal form for a UINT_PARAMETER. @return this handle
    virtual Value& setUnsignedInteger(unsigned int value);
    /// Stores six significant digits, as the C format %g writes them, for a DOUBLE_PARAMETER. @return this handle
    virtual Value& setDouble(double value);
    /// The position of the text that is read and written: 0.
    virtual unsigned long getCurrentValueIndex() const;
    /// The value in the tree, or null. It also reads the types without an accessor, such as OID_PARAMETER.
    virtual ParameterValue const* getParameterValue() const;

    /// Reads a LONG_PARAMETER, the bytes of a SIZE_PARAMETER (2^63 - 1 for more of them) or the milliseconds of a
    /// DURATION_PARAMETER.
    /// @throws ConfigurationException, kivo::ContractViolationException as asBoolean()
    std::int64_t asLong() const;
    /// Reads a ULONG_PARAMETER, the bytes of a SIZE_PARAMETER or the milliseconds of a DURATION_PARAMETER.
    /// @throws ConfigurationException, kivo::ContractViolationException as asBoolean()
    std::uint64_t asUnsignedLong() const;
    /// Stores the decimal form for a LONG_PARAMETER, bytes for a SIZE_PARAMETER ("1536") or milliseconds for a
    /// DURATION_PARAMETER ("250ms"). @return this handle
    /// @throws ConfigurationException, kivo::ContractViolationException as asBoolean()
    /// @throws ConfigurationException "<name>: \"<text>\" is not a valid size", or "duration", for what is below 0; the
    ///         value stays as it was
    Value& setLong(std::int64_t value);
    /// Stores the decimal form for a ULONG_PARAMETER, bytes for a SIZE_PARAMETER or milliseconds for a
    /// DURATION_PARAMETER, as setLong() does. @return this handle
    /// @throws ConfigurationException, kivo::ContractViolationException as asBoolean()
    /// @throws ConfigurationException "<name>: \"<text>\" is not a valid duration" for more than 2^63 - 1 milliseconds;
    ///         the value stays as it was
    Value& setUnsignedLong(std::uint64_t value);

    /// Whether the setting was neither given nor has a default.
    bool isNull() const;
    /// The same as isNull(): an alternative that was not chosen has no value.
    bool isExcluded() const;
    /// Whether the value is marked as the parameter's default; writing to it leaves the mark.
    bool isDefaultValue() const;
    /// Where the text comes from; APPLICATION_SOURCE after one of the writers.
    /// @throws ConfigurationException "Value is null"
    Origin getOrigin() const;
    /// The number of texts; 0 for a null handle.
    unsigned long getNumberOfValues() const;

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
