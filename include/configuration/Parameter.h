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

    /// Sets or replaces the least number that values may have, a text as a user would type it, which is copied. Set it
    /// before the parameter is specialized and before values are asked for: specializations take it over when they are
    /// made.
    ///
    /// A given text outside the bounds is a fault such as `<name>: "0" is less than the minimum "1"`. The bounds are
    /// checked after the type and before the validator, which is asked all the same. They are silent on a text that is
    /// no value of the type, and on an empty default. An empty text that the type takes for 0 is compared as 0. The
    /// double "nan" is outside any bounds: `<name>: "nan" is not a number`.
    /// @throws kivo::ContractViolationException "minimum != 0"
    /// @throws ConfigurationException "\"<name>\" is not a parameter for numbers"
    /// @throws ConfigurationParameterException "\"<minimum>\" is not a valid minimum for parameter \"<name>\"" for a
    ///         text that is no number of the type, with ": it is greater than the maximum \"<maximum>\"" for a number
    ///         that is; "\"<default>\" is not a valid default value for parameter \"<name>\": it is less than the
    ///         minimum \"<minimum>\"". Nothing is changed then.
    void setMinimum(char const* minimum);
    /// Sets or replaces the greatest number that values may have. All is as with setMinimum(), with "maximum" for
    /// "minimum", and "greater" for "less".
    void setMaximum(char const* maximum);
    /// The bounds as they were set, or null. They live until they are replaced.
    char const* getMinimum() const;
    /// As getMinimum().
    char const* getMaximum() const;

    /// @name Marks. Set them before the parameter is specialized: specializations take them over when they are made.
    /// @{

    /// Marks the values as secret, or takes the mark away. An Inspection and its reports show a secret text as "****",
    /// in messages, too. Exceptions, representations and records in the main log show it.
    void setSensitive(bool sensitive);
    /// Whether the values are secret; false unless set.
    bool isSensitive() const;
    /// Marks the parameter as one that should no longer be used. Values are taken as before. A request that is given
    /// one makes a record in the main log, of the category "Kernel", an Inspection a warning, for each:
    /// "\"<name>\" is deprecated: <advice>".
    /// @param advice what to do instead, for users; copied
    /// @throws kivo::ContractViolationException "advice && strlen(advice) > 0"
    void setDeprecation(char const* advice);
    /// What to do instead, or null when the parameter may be used. Lives until it is replaced.
    char const* getDeprecation() const;
    /// Says what the parameter was called before. In a specification nothing else may have this name, which
    /// Manager::registerSpecification() checks. A value of this name, in full, is one of the parameter, whatever source
    /// gives it, and gets its id. It is remarked on as a deprecated one is: "\"<former>\" is the former name of
    /// \"<name>\"".
    /// @param formerName a full name, whose letter case is ignored; copied
    /// @throws kivo::ContractViolationException "formerName && strlen(formerName) > 0"
    void setFormerName(char const* formerName);
    /// What the parameter was called before, or null. Lives until it is replaced.
    char const* getFormerName() const;
    /// @}

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

protected:
    /// Takes over from the parameter that this one specializes what Create() has no argument for: bounds and marks.
    /// @throws ConfigurationParameterException the default is outside the bounds, as setMinimum()
    KIVO_CONFIGURATION_LOCAL void takeAttributes(Parameter const& base);

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    Impl* mImpl; // the state that the base owns
};

} // namespace kivo::configuration
