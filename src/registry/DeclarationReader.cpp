#include "kernel/kvProcessInit.h"

#include "registry/DeclarationReader.h"

#include <configuration/ConfigurationException.h>

#include "registry/UnknownName.h"
#include "schema/NameComparison.h"
#include "schema/NameSuggestion.h"
#include "schema/ValueTypes.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace kivo::configuration {

namespace {

ConfigurationException composeRefusal(char const* text, char const* attribute) {
    return ConfigurationException("\"%s\" is not a acceptable value for the \"%s\" attribute", text, attribute);
}

/// What stands for a text that is absent.
constexpr char const* STAND_IN = "?";

/// The attributes of one element.
class Attributes {
public:
    /// @param isStandIn whether something stands for what would be refused
    explicit Attributes(XmlElement const& element, bool isStandIn = false)
        : mAttributes(element.getAttributes()), mIsStandIn(isStandIn) {}

    /// The text of an attribute, null when it is absent.
    char const* getOptional(std::string_view name) const {
        auto const found = std::ranges::find(mAttributes, name, &XmlAttribute::name);
        return found == mAttributes.end() ? nullptr : found->value;
    }

    /// The text of an attribute that must be there; it may be empty.
    char const* getRequired(char const* name) const {
        auto const* const text = getOptional(name);
        if (mIsStandIn) {
            return findStandIn(name);
        }
        if (!text) {
            throw ConfigurationException("Expected attribute \"%s\" was not found", name);
        }
        return text;
    }

    /// The text of an attribute that may be absent, but not empty.
    char const* getNotEmpty(char const* name) const {
        auto const* const text = getOptional(name);
        if (text && *text == '\0') {
            return mIsStandIn ? nullptr : throw composeRefusal(text, name);
        }
        return text;
    }

    /// The type that an attribute says, which must be there.
    Parameter::ValueType getType(char const* name) const {
        auto const* const word = getRequired(name);
        auto const type = findValueType(word);
        if (!type && !mIsStandIn) {
            throw UnknownName(UnknownName::Kind::VALUE_TYPE, word, composeRefusal(word, name));
        }
        return type.value_or(Parameter::STRING_PARAMETER);
    }

    /// Whether an attribute says true; nothing when it is absent.
    std::optional<bool> getFlag(char const* name) const {
        auto const* const text = getOptional(name);
        return text ? std::optional(equalIgnoringCase(text, "true") || std::string_view(text) == "1") : std::nullopt;
    }

private:
    /// An id and a name are usually the same, so each stands for the other one.
    char const* findStandIn(std::string_view name) const {
        auto const other = name == "id" ? "name" : name == "name" ? "id" : name;
        for (auto const& attribute : {name, other}) {
            if (auto const* const text = getOptional(attribute); text && *text != '\0') {
                return text;
            }
        }
        return STAND_IN;
    }

    std::span<XmlAttribute const> mAttributes;
    bool mIsStandIn;
};

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
        .type = attributes.getType("type"),
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

// The attributes that the functions above ask for.
constexpr bool FLAG = true;
constexpr AttributeFormat ID[] = {{"id"}};
constexpr AttributeFormat VALUE[] = {{"label"}, {"value"}};
constexpr AttributeFormat PARAMETER[] = {{"id"},         {"name"},     {"description"},    {"type"}, {"enumType"},
                                         {"valueName"},  {"default"},  {"validator"},      {"min"},  {"max"},
                                         {"deprecated"}, {"formerly"}, {"sensitive", FLAG}};
constexpr AttributeFormat GROUP[] = {{"id"}, {"name"}, {"description"}};
constexpr AttributeFormat CONTAINER[] = {{"id"}, {"name"}, {"description"}, {"optional", FLAG}, {"unbounded", FLAG}};
constexpr AttributeFormat CHOICE[] = {{"id"}, {"name"}, {"description"}, {"optional", FLAG}};
constexpr AttributeFormat REFERENCE[] = {
    {"id"}, {"description"}, {"default"}, {"optional", FLAG}, {"unbounded", FLAG}, {"hidden", FLAG}};

struct ElementKind {
    Content place;
    char const* name;
    Declaration::Details (*read)(Attributes const& attributes);
    Content children;
    std::span<AttributeFormat const> attributes;
};

constexpr ElementKind ELEMENTS[] = {
    {Content::ENUMERATIONS, "Enumeration", readEnumeration, Content::ENUMERATION_VALUES, ID},
    {Content::ENUMERATION_VALUES, "Value", readEnumerationValue, Content::NOTHING, VALUE},
    {Content::PARAMETERS, "Parameter", readParameter, Content::NOTHING, PARAMETER},
    {Content::GROUPS, "Group", readGroup, Content::ITEMS, GROUP},
    {Content::SPECIFICATIONS, "Specification", readSpecification, Content::ITEMS, CONTAINER},
    {Content::ITEMS, "Container", readContainer, Content::ITEMS, CONTAINER},
    {Content::ITEMS, "MutuallyExclusive", readExclusiveChoice, Content::ITEMS, CHOICE},
    {Content::ITEMS, "ParameterRef", readParameterReference, Content::NOTHING, REFERENCE},
    {Content::ITEMS, "GroupRef", readGroupReference, Content::NOTHING, ID},
};

/// Namespace prefixes do not matter.
bool isNamed(XmlElement const& element, std::string_view name) { return element.getLocalName() == name; }

void validateTagName(XmlElement const& element, char const* name) {
    if (!isNamed(element, name)) {
        throw UnknownName(UnknownName::Kind::ELEMENT, element.getLocalName(),
                          ConfigurationException("Expected \"%s\" tag but found \"%s\"", name, element.getLocalName()));
    }
}

ElementKind const* findKind(XmlElement const& element, Content place) {
    auto const* const kind = std::ranges::find_if(ELEMENTS, [&](ElementKind const& candidate) {
        return candidate.place == place && isNamed(element, candidate.name);
    });
    return kind == std::end(ELEMENTS) ? nullptr : kind;
}

/// Whether elements of several kinds may stand in a place, which the message about any other one depends on.
bool isForSeveralKinds(Content place) { return place == Content::SPECIFICATIONS || place == Content::ITEMS; }

ElementKind const& onlyKind(Content place) { return *std::ranges::find(ELEMENTS, place, &ElementKind::place); }

ElementKind const& kindOf(XmlElement const& element, Content place) {
    if (auto const* const kind = findKind(element, place)) {
        return *kind;
    }
    if (!isForSeveralKinds(place)) {
        validateTagName(element, onlyKind(place).name);
    }
    throw UnknownName(UnknownName::Kind::ELEMENT, element.getLocalName(),
                      ConfigurationException("\"%s\" is not a valid element", element.getLocalName()));
}

/// What an element is meant to be: as its name says, or nearly says, or the only thing that can stand there.
ElementKind const* meantKind(XmlElement const& element, Content place) {
    if (auto const* const kind = findKind(element, place)) {
        return kind;
    }
    if (place != Content::ITEMS) {
        return &onlyKind(place);
    }
    ClosestName closest(element.getLocalName());
    for (auto const& format : getElementFormats(place)) {
        closest.offer(format.name);
    }
    return closest.get() ? std::ranges::find(ELEMENTS, closest.get(), &ElementKind::name) : nullptr;
}

// What stands for a declaration: nothing in it can be refused but its id.

Declaration::Details weakened(ParameterDeclaration parameter) {
    parameter.defaultValue = ""; // fits every type, and is enough for an optional reference
    parameter.validator = parameter.enumType = parameter.minimum = parameter.maximum = nullptr;
    return parameter;
}

Declaration::Details weakened(EnumerationValueDeclaration const& value) {
    return EnumerationValueDeclaration{.label = value.label, .value = "0"};
}

Declaration::Details weakened(ParameterReference const& reference) {
    ParameterReference plain{};
    plain.id = reference.id;
    return plain;
}

template <class Details>
Declaration::Details weakened(Details const& details) {
    return details;
}

} // namespace

void validateRoot(XmlElement const& root) { validateTagName(root, ROOT_NAME); }

std::vector<SectionElement> readSections(XmlElement const& root) {
    std::vector<SectionElement> sections;
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

std::optional<Declaration> readStandIn(XmlElement const& element, Content place) {
    auto const* const kind = meantKind(element, place);
    if (!kind) {
        return std::nullopt;
    }
    auto const details = kind->read(Attributes(element, true));
    return Declaration{element, kind->children, std::visit([](auto const& each) { return weakened(each); }, details)};
}

std::vector<ElementFormat> getElementFormats(Content place) {
    std::vector<ElementFormat> formats;
    for (auto const& kind : ELEMENTS) {
        if (kind.place == place) {
            formats.push_back({kind.name, kind.attributes, kind.children});
        }
    }
    return formats;
}

std::vector<char const*> getSectionNames() {
    std::vector<char const*> names;
    std::ranges::transform(SECTIONS, std::back_inserter(names), &SectionKind::name);
    return names;
}

} // namespace kivo::configuration
