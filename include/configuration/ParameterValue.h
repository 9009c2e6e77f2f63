#pragma once

#include <configuration/Export.h>
#include <configuration/Origin.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterValueItem.h>

#include <cstdint>
#include <memory>

namespace kivo::configuration {

class StoredOrigin;

/// The texts given for one parameter, in order.
///
/// An entry may be absent: the parameter was named without a text (a flag without an argument). What an absent entry
/// reads as depends on the bound parameter: "1" for an optional boolean; the default's first text for another optional
/// parameter that has one; nothing for a mandatory parameter or an unbound value.
///
/// The typed readers convert the text that getValue() returns, each by itself, without checking: validation finds
/// faulty texts; here they are read as leniently as by the C library, in the C locale. A finished value may be read by
/// any number of threads, absent flags included.
class KIVO_CONFIGURATION_API ParameterValue : public ParameterValueItem {
public:
    /// An unbound value with one entry.
    /// @param id    the id, copied; null counts as empty
    /// @param value the text, copied; null makes the entry absent
    ParameterValue(char const* id, char const* value);
    /// A bound value with one entry.
    /// @throws kivo::ContractViolationException "mParameterItem != 0"
    ParameterValue(Parameter const* parameter, char const* value);
    /// Copies entries, binding, default mark, and the fields of the node.
    ParameterValue(ParameterValue const& other);
    /// As the copy constructor, whatever the method.
    ParameterValue(ParameterValue const& other, CopyMethod method);
    /// Replaces all by copies of the other's.
    ParameterValue& operator=(ParameterValue const& other);
    ~ParameterValue() override;

    char const* getParameterItemId() const override;
    /// PARAMETER_VALUE.
    ItemType getItemType() const override;
    /// Returns what the visitor's visitParameterValue() returns for this value.
    bool accept(ParameterValueVisitor& visitor) override;
    ParameterValue* clone(CopyMethod method) const override;

protected:
    /// Binds the value to a parameter.
    /// @throws kivo::ContractViolationException "parameterItem != 0"
    /// @throws ConfigurationException "\"<name>\" must be a parameter"
    void assignParameterItem(ParameterItem const* parameterItem) override;

public:
    /// The text of an entry, or null when it has none.
    /// @param index         position, counted from 0
    /// @param ignoreDefault true: an absent entry does not read as the parameter's default
    /// @return a text that lives until the value changes
    /// @throws kivo::ContractViolationException "index < mValues.size()", as all readers of an entry
    virtual char const* getValue(unsigned long index, bool ignoreDefault) const;
    /// False for "false" in any letter case, for an empty text and for a number that is 0 as a 32-bit int; else true.
    /// An enumeration's label reads as whether its number is not 0. Without a text, all readers say false or 0.
    /// @throws ConfigurationException "symbol \"<text>\" was not found" for an enumeration, as the next three
    virtual bool getBooleanValue(unsigned long index) const;
    /// The decimal number that the text begins with, after white space and a sign, or 0; of a number that does not
    /// fit, the low 32 bits of what strtol returns. An enumeration's label reads as its number.
    virtual int getIntValue(unsigned long index) const;
    /// As getIntValue(), taken as unsigned: texts up to 4294967295 read as they stand.
    virtual unsigned int getUIntValue(unsigned long index) const;
    /// The leading floating-point number, 0.0 without any; an enumeration's label reads as its number.
    virtual double getDoubleValue(unsigned long index) const;
    /// A signed 64-bit number. What does not fit reads as the nearest number that does; without a text, 0.
    ///
    /// The bytes of a SIZE_PARAMETER, the milliseconds of a DURATION_PARAMETER (0 for a text that is none), the number
    /// of an enumeration's label; for all other types, and without a parameter, the decimal number that the text begins
    /// with, as getIntValue() finds it.
    /// @throws ConfigurationException "symbol \"<text>\" was not found" for an enumeration, and what a
    ///         ParameterEnumValue without a definition throws
    std::int64_t getLongValue(unsigned long index) const;
    /// An unsigned 64-bit number, read as by getLongValue(); what is negative reads as 0.
    std::uint64_t getULongValue(unsigned long index) const;

    /// The number of entries, absent ones included.
    unsigned long getNumberOfValues() const;
    /// The parameter that the value is bound to. Null when it is unbound, and when a caller's own item, which is no
    /// Parameter, was bound to it.
    Parameter const* getParameter() const;
    /// The type of the bound parameter, which is asked for it.
    /// @throws kivo::ContractViolationException "mParameter != 0"
    Parameter::ValueType getValueType() const;
    /// Whether the text is the parameter's default rather than a given one.
    bool isUsingDefaultValue() const;
    /// Sets or clears the mark that isUsingDefaultValue() reads.
    void setIsUsingDefaultValue(bool usingDefaultValue);
    /// Appends an entry. @param value the text, copied; null makes the entry absent
    void addValue(char const* value);
    /// Replaces an entry. @param value the text, copied; null makes the entry absent
    /// @throws kivo::ContractViolationException "index < mValues.size()"
    void setValue(unsigned long index, char const* value);
    /// Where the text of an entry, or an entry without one, was given. It goes wherever the text goes: through copies,
    /// matching, merging and defaults. An entry that addValue() and setValue() make has an unknown origin, until
    /// somebody calls setOrigin(); the Manager does so for what a provider says nothing about.
    /// @throws kivo::ContractViolationException "index < mValues.size()"
    Origin getOrigin(unsigned long index) const;
    /// Says where an entry was given.
    /// @throws kivo::ContractViolationException "index < mValues.size()"
    void setOrigin(unsigned long index, Origin const& origin);

    /// As getOrigin(), without a conversion.
    KIVO_CONFIGURATION_LOCAL StoredOrigin const& getStoredOrigin(unsigned long index) const;
    /// As setOrigin(), without a conversion.
    KIVO_CONFIGURATION_LOCAL void setStoredOrigin(unsigned long index, StoredOrigin const& origin);
    /// Says where those entries were given that have an unknown origin.
    KIVO_CONFIGURATION_LOCAL void fillOrigins(StoredOrigin const& origin);
    /// As addValue(), with an origin.
    KIVO_CONFIGURATION_LOCAL void addValueAt(char const* value, StoredOrigin const& origin);
    /// As the constructor of an unbound value, with an origin.
    KIVO_CONFIGURATION_LOCAL ParameterValue(char const* id, char const* value, StoredOrigin const& origin);

protected:
    class KIVO_CONFIGURATION_LOCAL Impl;
    /// As the first constructor. `impl` is the state of the whole value: a derived class puts its own fields there,
    /// too.
    KIVO_CONFIGURATION_LOCAL ParameterValue(std::unique_ptr<Impl> impl, char const* id);
    /// As the copy constructor, with the state of the whole value.
    KIVO_CONFIGURATION_LOCAL ParameterValue(std::unique_ptr<Impl> impl, ParameterValue const& other);

private:
    Impl* mImpl; // the state that the base owns
};

} // namespace kivo::configuration
