#pragma once

#include <configuration/Parameter.h>
#include <configuration/ParameterVisitor.h>

#include <string>
#include <vector>

namespace kivo::configuration {

class ParameterErrors;
class ParameterValidator;
class ParameterValue;
class ParameterValueGroup;

/// Walks a specification's schema beside the merged values and reports texts that fail their checks, required
/// parameters and containers that nobody gave, and alternatives that were given together. Reads only.
///
/// The static operations are fixed names for the checks of values/ValueChecks.h.
class SecondPhaseValidationVisitor final : public ParameterVisitor {
public:
    /// @param valueGroup the value group bound to the specification's root group
    SecondPhaseValidationVisitor(ParameterValueGroup const& valueGroup, ParameterErrors& errors);
    /// For an inspection: collects what a lookup or a validator throws, too, and checks all texts of a value of which
    /// one is missing.
    /// @param valueGroup        the value group bound to the root group, or to a container below it
    /// @param isInRequiredGroup whether a group around the container is not optional
    SecondPhaseValidationVisitor(ParameterValueGroup const& valueGroup, ParameterErrors& errors,
                                 bool isInRequiredGroup);

    /// @throws ConfigurationException "\"%s\" specification was not found": the value group is another specification's
    bool visitGroupStart(ParameterGroup const& schemaGroup) override;
    void visitGroupEnd(ParameterGroup const& schemaGroup) override;
    bool visitParameter(Parameter const& parameter) override;

    /// Whether one of the open schema groups is not optional.
    bool isGroupRequiredInCurrentNesting() const;

    /// What is said about a required section that nobody gave.
    static std::string composeMissingSection(ParameterGroup const& section);
    static std::string generateInvalidValueMessage(char const* parameterName, char const* valueText,
                                                   char const* typeName);
    static void validate(char const* parameterName, char const* valueText, Parameter::ValueType valueType,
                         ParameterErrors& errors);
    static void validate(ParameterValue const* value, Parameter::ValueType valueType, ParameterErrors& errors,
                         ParameterValidator const* validator);

private:
    /// An open schema group with its value group, or null when nobody gave it.
    struct Nesting {
        ParameterGroup const* schemaGroup;
        ParameterValueGroup const* valueGroup;
    };

    ParameterValueGroup const* findValueGroup(ParameterGroup const& schemaGroup) const;
    void check(ParameterValue const& value, Parameter const& parameter);
    void reportMissingParameters();

    ParameterValueGroup const& mValueGroup;
    ParameterErrors& mErrors;
    ParameterErrors* mCollected = nullptr; // takes what is thrown; null: it passes
    bool mIsInRequiredGroup = false;
    std::vector<std::string> mMissingParameters;
    std::vector<Nesting> mNesting;
};

} // namespace kivo::configuration
