#include "kernel/kvProcessInit.h"

#include "lint/DeclarationRemarks.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterEnumDefinition.h>

#include "lint/XmlNames.h"
#include "registry/DeclarationPlaces.h"
#include "registry/DeclarationReader.h"
#include "schema/NameSuggestion.h"
#include "schema/QuotedText.h"
#include "schema/SecretMask.h"

#include <algorithm>

namespace kivo::configuration {

namespace {

char const* attributeOf(XmlElement const& element, std::string_view name) {
    auto const attributes = element.getAttributes();
    auto const found = std::ranges::find(attributes, name, &XmlAttribute::name);
    return found == attributes.end() ? nullptr : found->value;
}

/// Attributes of XML itself and of other vocabularies have nothing to do with the format.
bool isForeign(std::string_view attribute) {
    return attribute == "xmlns" || attribute.find(':') != std::string_view::npos;
}

bool isBoolean(std::string_view text) {
    return text == "0" || text == "1" || equalIgnoringCase(text, "true") || equalIgnoringCase(text, "false");
}

/// Whether values files name the items that an element declares.
bool isNamedInFiles(std::string_view element) {
    return element == "Parameter" || element == "Container" || element == "Specification";
}

} // namespace

void DeclarationRemarks::remarkOnSections(XmlElement const& root) {
    remarkOnAttributes(root, {ROOT_NAME, {}, Content::NOTHING});
    auto const sections = readSections(root);
    auto section = sections.begin();
    for (auto const* child = root.getFirstChild(); child; child = child->getNextSibling()) {
        if (section != sections.end() && child == &section->element) {
            remarkOnAttributes(*child, {child->getLocalName(), {}, Content::NOTHING});
            ++section;
            continue;
        }
        auto const names = getSectionNames();
        bool const isSection = std::ranges::find(names, std::string_view(child->getLocalName())) != names.end();
        remarkOnUnread(*child,
                       isSection ? " is not read: it stands after a section that it has to precede, or after something "
                                   "else that is not read"
                                 : " is not read, nor is what follows it: it is no section",
                       isSection ? std::string() : suggest(child->getLocalName(), names));
    }
}

void DeclarationRemarks::remarkOn(XmlElement const& element, Content place) {
    auto const formats = getElementFormats(place);
    auto const format = std::ranges::find(formats, std::string_view(element.getLocalName()), &ElementFormat::name);
    if (format == formats.end()) {
        return; // refused
    }
    remarkOnAttributes(element, *format);
    remarkOnName(element, *format);
    auto& spellings = place == Content::ENUMERATIONS ? mContents.enumerationSpellings : mContents.itemSpellings;
    remarkOnSpelling(element, attributeOf(element, "id"), spellings);
    remarkOnSpelling(element, attributeOf(element, "enumType"), mContents.enumerationSpellings);
    if (format->children == Content::NOTHING) {
        for (auto const* child = element.getFirstChild(); child; child = child->getNextSibling()) {
            remarkOnUnread(*child, " is not read: nothing is read inside " + quoted(format->name));
        }
    }
}

struct DeclarationRemarks::Attribute {
    XmlAttribute const& given;
    StoredOrigin place;
};

void DeclarationRemarks::remarkOnAttributes(XmlElement const& element, ElementFormat const& format) {
    std::vector<StoredOrigin> places; // found together, when there is something to say
    for (auto const& given : element.getAttributes()) {
        auto const known = std::ranges::find(format.attributes, std::string_view(given.name), &AttributeFormat::name);
        bool const isKnown = known != format.attributes.end();
        if (isKnown ? !known->isFlag || isBoolean(given.value) : isForeign(given.name)) {
            continue;
        }
        if (places.empty()) {
            places = mPlaces.ofAttributes(element);
        }
        if (isKnown) {
            remarkOnFlag({given, places[given.number]});
            continue;
        }
        std::vector<char const*> names;
        std::ranges::transform(format.attributes, std::back_inserter(names),
                               [](AttributeFormat const& attribute) { return attribute.name.data(); });
        add(Rule::UNKNOWN_ATTRIBUTE,
            quoted(given.name) + " is not an attribute of " + quoted(format.name) + ": it is not read",
            places[given.number], suggest(given.name, names));
    }
}

void DeclarationRemarks::remarkOnFlag(Attribute const& attribute) {
    add(Rule::DOUBTFUL_BOOLEAN,
        std::string(attribute.given.name) + ": " + quoted(attribute.given.value) +
            " reads as false; write true, false, 1 or 0",
        attribute.place, suggest(attribute.given.value, {"true", "false"}));
}

void DeclarationRemarks::remarkOnName(XmlElement const& element, ElementFormat const& format) {
    auto const* const id = attributeOf(element, "id");
    auto const* const name = attributeOf(element, "name");
    bool const areGiven = id && *id != '\0' && name && *name != '\0'; // else it is refused
    if (areGiven && std::string_view(id) != name) {
        add(Rule::DIFFERENT_NAME,
            "the id " + quoted(id) + " and the name " + quoted(name) +
                " differ: values files use the id, abbreviated flags and messages the name",
            mPlaces.of(element, name));
    }
    if (id && *id != '\0' && isNamedInFiles(format.name) && !isXmlName(id)) {
        add(Rule::UNWRITABLE_NAME, quoted(id) + " is no XML name: no values file can use it", mPlaces.of(element, id));
    }
}

void DeclarationRemarks::remarkOnSpelling(XmlElement const& element, char const* text,
                                          RegistryContents::Spellings& spellings) {
    if (!text) {
        return;
    }
    auto const& first = spellings.try_emplace(text, text).first->second;
    if (first != text) {
        add(Rule::LETTER_CASE, quoted(text) + " is written " + quoted(first) + " elsewhere: both are the same id",
            mPlaces.of(element, text), first);
    }
}

void DeclarationRemarks::remarkOnDefault(XmlElement const& element, Parameter const& parameter, char const* text) {
    auto const* const labels = parameter.getEnumDefinition();
    if (!text || !labels) {
        return;
    }
    std::vector<char const*> symbols;
    for (unsigned long i = 0; i < labels->getNumberOfSymbols(); ++i) {
        symbols.push_back(labels->getSymbol(i));
    }
    if (std::ranges::find(symbols, std::string_view(text)) == symbols.end()) {
        bool const isSecret = parameter.isSensitive();
        add(Rule::UNKNOWN_LABEL,
            "the default " + quoted(isSecret ? SECRET_MASK : text) + " is no label of the enumeration " +
                quoted(labels->getName()) + ": reading it fails",
            mPlaces.of(element, text), isSecret ? "" : suggest(text, symbols));
    }
}

/// @param message follows the element's name
void DeclarationRemarks::remarkOnUnread(XmlElement const& element, std::string const& message,
                                        std::string const& suggestion) {
    mContents.excuse(element);
    add(Rule::UNREAD_ELEMENT, quoted(element.getLocalName()) + message, mPlaces.of(element), suggestion);
}

void DeclarationRemarks::add(Rule rule, std::string const& message, StoredOrigin const& place,
                             std::string const& suggestion) {
    mContents.findings.add(Finding::WARNING_SEVERITY, rule, message, place, suggestion);
}

std::string DeclarationRemarks::suggest(std::string_view given, std::vector<char const*> const& names) const {
    return mContents.findings.wantsSuggestion() ? closestName(given, names) : std::string();
}

} // namespace kivo::configuration
