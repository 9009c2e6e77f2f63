#include "kernel/kvProcessInit.h"

#include "registry/DeclarationReader.h"

#include <configuration/ConfigurationException.h>

#include "schema/NameComparison.h"
#include "schema/ValueTypes.h"

#include <algorithm>
#include <string_view>

namespace kivo::configuration {

namespace {

[[noreturn]] void refuse(char const* text, char const* attribute) {
    throw ConfigurationException("\"%s\" is not a acceptable value for the \"%s\" attribute", text, attribute);
}

/// The attributes of one element.
class Attributes {
public:
    explicit Attributes(XmlElement const& element) : mAttributes(element.getAttributes()) {}

    /// The text of an attribute, null when it is absent.
    char const* getOptional(std::string_view name) const {
        auto const found = std::ranges::find(mAttributes, name, &XmlAttribute::name);
        return found == mAttributes.end() ? nullptr : found->value;
    }

    /// The text of an attribute that must be there; it may be empty.
    char const* getRequired(char const* name) const {
        auto const* const text = getOptional(name);
        if (!text) {
            throw ConfigurationException("Expected attribute \"%s\" was not found", name);
        }
        return text;
    }

    /// The text of an attribute that may be absent, but not empty.
    char const* getNotEmpty(char const* name) const {
        auto const* const text = getOptional(name);
        if (text && *text == '\0') {
            refuse(text, name);
        }
        return text;
    }

    /// Whether an attribute says true; nothing when it is absent.
    std::optional<bool> getFlag(char const* name) const {
        auto const* const text = getOptional(name);
        return text ? std::optional(equalIgnoringCase(text, "true") || std::string_view(text) == "1") : std::nullopt;
    }

private:
    std::span<XmlAttribute const> mAttributes;
};

Parameter::ValueType valueTypeOf(char const* word) {
    auto const type = findValueType(word);
    if (!type) {
        refuse(word, "type");
    }
    return *type;
}

// One function for each element. Members are initialised in the order in which their attributes are asked for.

Declaration::Details readEnumeration(Attributes const& attributes) {
    return EnumerationDeclaration{.id = attributes.getRequired("id")};
}

Declaration::Details readEnumerationValue(Attributes const& attributes) {
    return EnumerationValueDeclaration{
        .label = attributes.getRequired("label"),
        .value = attributes.getOptional("value"),
    };
}

Declaration::Details readParameter(Attributes const& attributes) {
    ParameterDeclaration parameter{
        .id = attributes.getRequired("id"),
        .name = attributes.getRequired("name"),
        .description = attributes.getRequired("description"),
        .type = valueTypeOf(attributes.getRequired("type")),
        .valueName = attributes.getOptional("valueName"),
        .defaultValue = attributes.getOptional("default"),
        .validator = attributes.getOptional("validator"),
        .enumType = nullptr,
        .minimum = attributes.getOptional("min"),
        .maximum = attributes.getOptional("max"),
        .isSensitive = attributes.getFlag("sensitive").value_or(false),
        .deprecation = attributes.getNotEmpty("deprecated"),
        .formerName = attributes.getNotEmpty("formerly"),
    };
    if (parameter.type == Parameter::ENUM_PARAMETER) {
        parameter.enumType = attributes.getRequired("enumType");
    }
    return parameter;
}

Declaration::Details readGroup(Attributes const& attributes) {
    return GroupDeclaration{
        .id = attributes.getRequired("id"),
        .name = attributes.getRequired("name"),
        .description = attributes.getRequired("description"),
    };
}

ContainerDeclaration containerOf(Attributes const& attributes) {
    return {
        .id = attributes.getRequired("id"),
        .name = attributes.getRequired("name"),
        .description = attributes.getRequired("description"),
        .isOptional = attributes.getFlag("optional").value_or(false),
        .isUnbounded = attributes.getFlag("unbounded").value_or(false),
    };
}

Declaration::Details readContainer(Attributes const& attributes) { return containerOf(attributes); }

Declaration::Details readSpecification(Attributes const& attributes) {
    return SpecificationDeclaration{.root = containerOf(attributes)};
}

Declaration::Details readExclusiveChoice(Attributes const& attributes) {
    return ExclusiveChoiceDeclaration{
        .id = attributes.getRequired("id"),
        .name = attributes.getRequired("name"),
        .description = attributes.getOptional("description"),
        .isOptional = attributes.getFlag("optional").value_or(false),
    };
}

Declaration::Details readParameterReference(Attributes const& attributes) {
    return ParameterReference{
        .id = attributes.getRequired("id"),
        .description = attributes.getOptional("description"),
        .defaultValue = attributes.getOptional("default"),
        .isOptional = attributes.getFlag("optional"),
        .isUnbounded = attributes.getFlag("unbounded"),
        .isHidden = attributes.getFlag("hidden"),
    };
}

Declaration::Details readGroupReference(Attributes const& attributes) {
    return GroupReference{.id = attributes.getRequired("id")};
}

struct SectionKind {
    char const* name;
    Content children;
};

constexpr SectionKind SECTIONS[] = {
    {"Enumerations", Content::ENUMERATIONS},
    {"Parameters", Content::PARAMETERS},
    {"Groups", Content::GROUPS},
    {"Specifications", Content::SPECIFICATIONS},
};

struct ElementKind {
    Content place;
    char const* name;
    Declaration::Details (*read)(Attributes const& attributes);
    Content children;
};

constexpr ElementKind ELEMENTS[] = {
    {Content::ENUMERATIONS, "Enumeration", readEnumeration, Content::ENUMERATION_VALUES},
    {Content::ENUMERATION_VALUES, "Value", readEnumerationValue, Content::NOTHING},
    {Content::PARAMETERS, "Parameter", readParameter, Content::NOTHING},
    {Content::GROUPS, "Group", readGroup, Content::ITEMS},
    {Content::SPECIFICATIONS, "Specification", readSpecification, Content::ITEMS},
    {Content::ITEMS, "Container", readContainer, Content::ITEMS},
    {Content::ITEMS, "MutuallyExclusive", readExclusiveChoice, Content::ITEMS},
    {Content::ITEMS, "ParameterRef", readParameterReference, Content::NOTHING},
    {Content::ITEMS, "GroupRef", readGroupReference, Content::NOTHING},
};

/// Namespace prefixes do not matter.
bool isNamed(XmlElement const& element, std::string_view name) { return element.getLocalName() == name; }

void validateTagName(XmlElement const& element, char const* name) {
    if (!isNamed(element, name)) {
        throw ConfigurationException("Expected \"%s\" tag but found \"%s\"", name, element.getLocalName());
    }
}

ElementKind const& kindOf(XmlElement const& element, Content place) {
    auto const* const kind = std::ranges::find_if(ELEMENTS, [&](ElementKind const& candidate) {
        return candidate.place == place && isNamed(element, candidate.name);
    });
    if (kind != std::end(ELEMENTS)) {
        return *kind;
    }
    if (place != Content::SPECIFICATIONS && place != Content::ITEMS) {
        validateTagName(element, std::ranges::find(ELEMENTS, place, &ElementKind::place)->name);
    }
    throw ConfigurationException("\"%s\" is not a valid element", element.getLocalName());
}

} // namespace

std::vector<Section> readSections(XmlElement const& root) {
    validateTagName(root, "ConfigurationRegistry");
    std::vector<Section> sections;
    auto const* element = root.getFirstChild();
    for (auto const& kind : SECTIONS) {
        if (element && isNamed(*element, kind.name)) {
            sections.push_back({*element, kind.children});
            element = element->getNextSibling();
        }
    }
    return sections;
}

Declaration readDeclaration(XmlElement const& element, Content place) {
    auto const& kind = kindOf(element, place);
    return {element, kind.children, kind.read(Attributes(element))};
}

} // namespace kivo::configuration
