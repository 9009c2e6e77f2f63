#pragma once

#include <configuration/Export.h>
#include <configuration/ParameterValue.h>

namespace kivo::configuration {

class ParameterEnumDefinition;

/// A value that resolves its labels through a definition of its own, bound to a parameter or not.
class KIVO_CONFIGURATION_API ParameterEnumValue : public ParameterValue {
public:
    /// An unbound value with one entry and no definition; see ParameterValue.
    ParameterEnumValue(char const* id, char const* value);
    /// Copies the pointer to the definition, too.
    ParameterEnumValue(ParameterEnumValue const& other);
    /// Copies the pointer to the definition, too.
    ParameterEnumValue& operator=(ParameterEnumValue const& other);
    ~ParameterEnumValue() override;

    ParameterEnumValue* clone(CopyMethod method) const override;

    /// Whether the label's number is not 0.
    /// @throws ConfigurationException "Must set the enumeration defintion first", as the next three;
    ///         "symbol \"<text>\" was not found" (an entry that reads as no text is no label:
    ///         the message then shows an empty one)
    bool getBooleanValue(unsigned long index) const override;
    /// The label's number.
    int getIntValue(unsigned long index) const override;
    /// The label's number as unsigned.
    unsigned int getUIntValue(unsigned long index) const override;
    /// The label's number as a double.
    double getDoubleValue(unsigned long index) const override;

    /// Sets the labels; the definition is not owned and must outlive the value.
    void setEnumDefinition(ParameterEnumDefinition const& enumDefinition);
    /// The labels, or null when none were set.
    ParameterEnumDefinition const* getEnumDefinition() const;

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    Impl* mImpl; // the state that the base owns
};

} // namespace kivo::configuration
