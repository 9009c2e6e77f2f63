#pragma once

#include <configuration/Export.h>
#include <configuration/ParameterItem.h>

namespace kivo::configuration {

class ParameterEnumDefinition;
class ParameterValidator;
class ParameterValue;
class ParameterValueGroup;

/// One named, typed setting.
///
/// Made by Create(), which registers it with the Manager; the Manager owns it until Manager::reset() or
/// Manager::shutdown(). Groups only refer to it, and one parameter may stand in several groups.
class KIVO_CONFIGURATION_API Parameter : public ParameterItem {
public:
    /// The type that the texts of a value must fit.
    enum ValueType {
        BOOLEAN_PARAMETER = 0,  ///< a number (0 is false), or "true" or "false" in any letter case
        STRING_PARAMETER = 1,   ///< any text
        INT_PARAMETER = 2,      ///< a decimal number from -2147483648 to 2147483647
        UINT_PARAMETER = 3,     ///< a decimal number from 0 to 4294967295
        DOUBLE_PARAMETER = 4,   ///< a floating-point number, with a decimal point in every locale
        OID_PARAMETER = 5,      ///< four unsigned numbers joined by hyphens, with or without "#" in front
        ENUM_PARAMETER = 6,     ///< a label of the parameter's enumeration definition
        LONG_PARAMETER = 7,     ///< a decimal number from -2^63 to 2^63 - 1
        ULONG_PARAMETER = 8,    ///< a decimal number from 0 to 2^64 - 1
        SIZE_PARAMETER = 9,     ///< bytes, from 0 to 2^64 - 1: a decimal number, with or without a unit, as "1.5k"
        DURATION_PARAMETER = 10 ///< milliseconds, from 0 to 2^63 - 1: whole numbers, each with its unit, as "1d12h"
    };

    /// Builds a parameter without registering it; tools use Create(), which documents the arguments and
    /// exceptions. An id that is null or empty is "id && strlen(id) > 0" here, and one that is taken is not noticed.
    Parameter(char const* id, char const* name, char const* description, bool optional, bool unbounded,
              ValueType valueType, char const* defaultValue, char const* valueName, char const* validatorName,
              bool hidden);
    ~Parameter() override;

    /// PARAMETER.
    ItemType getItemType() const override;
    bool isOptional() const override;
    bool isUnbounded() const override;
    char const* getId() const override;
    char const* getName() const override;
    char const* getDescription() const override;
    void setDescription(char const* description) override;
    /// Returns what the visitor's visitParameter() returns for this parameter.
    bool accept(ParameterVisitor& visitor) const override;
    bool isSpecialized() const override;

    /// "Parameter".
    virtual char const* getItemTypeName() const;
    /// The placeholder for the value in usage and help texts, or null when there is none. Lives as long as the
    /// parameter.
    virtual char const* getValueName() const;
    /// The type that given texts are checked against.
    virtual ValueType getValueType() const;
    /// The default, bound to this parameter and marked as one, or null. Its origin is DEFAULT_SOURCE, with the place of
    /// the attribute that gives it when that stands in a registry file. Owned by the parameter.
    virtual ParameterValue const* getDefaultValue() const;
    /// Sets or replaces the labels of an enumeration parameter. The definition is not owned and must outlive the
    /// parameter.
    /// @throws kivo::ContractViolationException "enumDef != 0"
    /// @throws ConfigurationException "\"<name>\" is not an enumeration parameter"
    virtual void setEnumDefinition(ParameterEnumDefinition const* enumDef);
    /// The labels, or null when none were set. Owned by the manager.
    virtual ParameterEnumDefinition const* getEnumDefinition() const;
    /// The check that values undergo beside their type, or null. Owned by the manager.
    virtual ParameterValidator const* getValidator() const;

    /// Whether usage and help texts, and abbreviated flags, pass this parameter over.
    bool isHidden() const;

    /// Stores a pair that configures the validator for this parameter; a name given again collects several texts.
    /// @throws kivo::ContractViolationException "name != 0 && strlen(name) > 0", "value != 0"
    void addValidatorConfigurationParameterValue(char const* name, char const* value);
    /// The pairs stored for the validator, or null when there are none. Owned by the parameter.
    ParameterValueGroup const* getValidatorConfiguration() const;
    /// Says where the default is declared; until then it has no place.
    KIVO_CONFIGURATION_LOCAL void setDefaultOrigin(StoredOrigin const& origin);

    /// Builds a parameter and registers it with the Manager, which owns it from then on. Nothing is registered when an
    /// exception is thrown.
    /// @param id            key of the parameter; letter case is ignored
    /// @param name          name shown to users; use the text of the id unless there is a reason not to
    /// @param description   help text
    /// @param optional      whether a user may leave it out
    /// @param unbounded     whether it may be given several values
    /// @param valueType     type of the values
    /// @param defaultValue  text as a user would type it, or null. An optional boolean, int or double then gets "0".
    ///                      An empty text is accepted for every type.
    /// @param valueName     placeholder for usage and help texts, or null
    /// @param validatorName name of a registered validator, or null
    /// @param hidden        whether usage and help texts leave it out
    /// @throws kivo::ContractViolationException "id != 0", "objectKey != 0 && *objectKey != '\0'" (the look-up of the
    ///         id comes first), "name && strlen(name) > 0", "description && strlen(description) > 0"
    ///         An empty validator name is "objectKey != 0 && *objectKey != '\0'".
    /// @throws ConfigurationException "Parameter id \"<id>\" is not unique",
    ///         "Validator \"<validatorName>\" was not found", "Duplicate validator \"<validatorName>\"",
    ///         "Optional parameter \"<name>\" is missing a default value" (optional, not unbounded, no default)
    /// @throws ConfigurationParameterException
    ///         "\"<defaultValue>\" is not a valid default value for parameter \"<name>\"", with the single faults
    static Parameter* Create(char const* id, char const* name, char const* description, bool optional, bool unbounded,
                             ValueType valueType, char const* defaultValue, char const* valueName,
                             char const* validatorName, bool hidden);

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    Impl* mImpl; // the state that the base owns
};

} // namespace kivo::configuration
