#pragma once

#include <configuration/Parameter.h>

#include "registry/xml/XmlDocument.h"

#include <optional>
#include <variant>

// What the elements of a registry file say. All texts belong to the document, and null stands for an attribute that is
// absent.

namespace kivo::configuration {

struct EnumerationDeclaration {
    char const* id;
};

struct EnumerationValueDeclaration {
    char const* label;
    char const* value; ///< a number; null for the next one
};

struct ParameterDeclaration {
    char const* id;
    char const* name;
    char const* description;
    Parameter::ValueType type;
    char const* valueName;
    char const* defaultValue;
    char const* validator;
    char const* enumType; ///< null unless the type is ENUM_PARAMETER
    char const* minimum;
    char const* maximum;
    bool isSensitive;
    char const* deprecation;
    char const* formerName;
};

struct GroupDeclaration {
    char const* id;
    char const* name;
    char const* description;
};

struct ContainerDeclaration {
    char const* id;
    char const* name;
    char const* description;
    bool isOptional;
    bool isUnbounded;
};

struct SpecificationDeclaration {
    ContainerDeclaration root;
};

struct ExclusiveChoiceDeclaration {
    char const* id;
    char const* name;
    char const* description;
    bool isOptional;
};

/// What is absent stays as the parameter has it.
struct ParameterReference {
    char const* id;
    char const* description;
    char const* defaultValue;
    std::optional<bool> isOptional;
    std::optional<bool> isUnbounded;
    std::optional<bool> isHidden;
};

struct GroupReference {
    char const* id;
};

/// What may stand inside an element.
enum class Content { NOTHING, ENUMERATIONS, ENUMERATION_VALUES, PARAMETERS, GROUPS, SPECIFICATIONS, ITEMS };

/// What one element says, without its children. It lives no longer than the document.
struct Declaration {
    using Details = std::variant<EnumerationDeclaration, EnumerationValueDeclaration, ParameterDeclaration,
                                 GroupDeclaration, ContainerDeclaration, SpecificationDeclaration,
                                 ExclusiveChoiceDeclaration, ParameterReference, GroupReference>;

    XmlElement const& element; ///< the document knows its position, and those of its attributes
    Content children;
    Details details;
};

} // namespace kivo::configuration
