#include "kernel/kvProcessInit.h"

#include "registry/ConfigurationRegistryLoader.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Manager.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterSpecialization.h>
#include <configuration/Specification.h>

#include "kernel/kvFiles.h"
#include "registry/ElementReader.h"
#include "registry/UnfoldedSizes.h"
#include "registry/xml/XmlFile.h"
#include "schema/MainLog.h"
#include "values/NumberText.h"

#include <algorithm>
#include <deque>
#include <limits>

namespace kivo::configuration {

namespace {

using enum RegistryAttribute;

struct ValueTypeWord {
    std::string_view word;
    Parameter::ValueType type;
};

constexpr ValueTypeWord VALUE_TYPE_WORDS[] = {
    {"bool", Parameter::BOOLEAN_PARAMETER}, {"string", Parameter::STRING_PARAMETER}, {"int", Parameter::INT_PARAMETER},
    {"uint", Parameter::UINT_PARAMETER},    {"double", Parameter::DOUBLE_PARAMETER}, {"oid", Parameter::OID_PARAMETER},
    {"enum", Parameter::ENUM_PARAMETER},
};

Parameter::ValueType valueTypeOf(std::string const& word) {
    auto const* const found = std::ranges::find(VALUE_TYPE_WORDS, word, &ValueTypeWord::word);
    if (found == std::end(VALUE_TYPE_WORDS)) {
        throw ConfigurationException("\"%s\" is not a acceptable value for the \"%s\" attribute", word.c_str(), "type");
    }
    return found->type;
}

int enumerationNumber(std::string const& text) {
    using Limits = std::numeric_limits<int>;
    auto const number = parseInteger(text.c_str());
    if (!number.isWhole || number.value < Limits::min() || number.value > Limits::max()) {
        throw ConfigurationException("\"%s\" is not a valid enumeration value", text.c_str());
    }
    return static_cast<int>(number.value);
}

[[noreturn]] void refuseElement(XmlElement const& element) {
    throw ConfigurationException("\"%s\" is not a valid element", element.getLocalName());
}

/// @param error null: the load succeeded
void writeLoadLogMessage(char const* fileName, char const* error) {
    std::string text = "loadConfigurationRegistryFile: [";
    text.append(error ? "failed" : "succeeded").append("]\n [file = \"").append(fileName).append("\"]");
    if (error) {
        text.append("\n [error = \"").append(error).append("\"]");
    }
    addToMainLog(text);
}

} // namespace

class ConfigurationRegistryLoader::Impl {
public:
    void readFile(char const* fileName);

private:
    /// What reads the elements of one name.
    struct Reader {
        char const* name;
        void (Impl::*read)(XmlElement const& element);
    };

    /// The group whose children are read, for the time of a scope.
    class OpenGroup {
    public:
        OpenGroup(Impl& impl, ParameterGroup& group);
        ~OpenGroup() { mOpenGroups.pop_back(); }
        OpenGroup(OpenGroup const&) = delete;
        OpenGroup& operator=(OpenGroup const&) = delete;

    private:
        std::deque<ParameterGroup*>& mOpenGroups;
    };

    void processRootElement(XmlElement const& root);
    void processEnumerationsSection(XmlElement const& section);
    void processParametersSection(XmlElement const& section);
    void processGroupsSection(XmlElement const& section);
    void processSpecificationsSection(XmlElement const& section);

    void processEnumerationElement(XmlElement const& element);
    void processParameterElement(XmlElement const& element);
    void processGroupElement(XmlElement const& element);
    void processSpecificationElement(XmlElement const& element);

    void processSpecificationItemGroupSection(XmlElement const& element);
    void processContainerElement(XmlElement const& element);
    void processMutuallyExclusiveElement(XmlElement const& element);
    void processParameterRefElement(XmlElement const& element);
    void processGroupRefElement(XmlElement const& element);

    ParameterGroup* processContainerSection(XmlElement const& element);
    void addToOpenGroup(ParameterItem* item);
    UnfoldedSize const& checkReference(ParameterGroup const& group);

    /// From the outermost element to the innermost one whose children are being read.
    std::deque<ParameterGroup*> mOpenGroups;
    /// What the outermost open group amounts to by now.
    unsigned long mUnfoldedItems = 0;
    UnfoldedSizes mUnfoldedSizes;
};

ConfigurationRegistryLoader::ConfigurationRegistryLoader() : mImpl(std::make_unique<Impl>()) {}

ConfigurationRegistryLoader::~ConfigurationRegistryLoader() = default;

void ConfigurationRegistryLoader::loadFile(char const* fileName) {
    auto const* const path = fileName ? fileName : "";
    try {
        mImpl->readFile(path);
    } catch (std::exception const& error) {
        writeLoadLogMessage(path, error.what() ? error.what() : "");
        throw;
    }
    writeLoadLogMessage(path, nullptr);
}

void ConfigurationRegistryLoader::Impl::readFile(char const* fileName) {
    if (kvLocalExists(fileName) == KV_FILE_MISSING) {
        throw ConfigurationException("File \"%s\" was not found", fileName);
    }
    XmlFile const file(fileName);
    file.getErrors().throwIfErrors();
    auto const& root = file.getDocument().getRoot();
    validateTagName(&root, "ConfigurationRegistry");
    mUnfoldedSizes = {}; // groups can have changed since another file was read
    processRootElement(root);
}

/// The sections stand in this order, each at most once; what does not fit ends the reading.
void ConfigurationRegistryLoader::Impl::processRootElement(XmlElement const& root) {
    static constexpr Reader SECTIONS[] = {
        {"Enumerations", &Impl::processEnumerationsSection},
        {"Parameters", &Impl::processParametersSection},
        {"Groups", &Impl::processGroupsSection},
        {"Specifications", &Impl::processSpecificationsSection},
    };
    auto const* element = root.getFirstChild();
    for (auto const& section : SECTIONS) {
        if (element && isNamed(*element, section.name)) {
            (this->*section.read)(*element);
            element = element->getNextSibling();
        }
    }
}

void ConfigurationRegistryLoader::Impl::processEnumerationsSection(XmlElement const& section) {
    forEachChild(section, [this](auto const& element) { processEnumerationElement(element); });
}

void ConfigurationRegistryLoader::Impl::processParametersSection(XmlElement const& section) {
    forEachChild(section, [this](auto const& element) { processParameterElement(element); });
}

void ConfigurationRegistryLoader::Impl::processGroupsSection(XmlElement const& section) {
    forEachChild(section, [this](auto const& element) { processGroupElement(element); });
}

void ConfigurationRegistryLoader::Impl::processSpecificationsSection(XmlElement const& section) {
    forEachChild(section, [this](auto const& element) { processSpecificationElement(element); });
}

void ConfigurationRegistryLoader::Impl::processEnumerationElement(XmlElement const& element) {
    validateTagName(&element, "Enumeration");
    auto const id = ElementReader(element).getRequired(ID);
    if (Manager::getInstance()->getEnumDefinition(id.c_str())) {
        throw ConfigurationException("The \"%s\" enumeration has already been defined", id.c_str());
    }
    auto definition = std::make_unique<ParameterEnumDefinition>(id.c_str());
    long nextNumber = 0;
    forEachChild(element, [&](XmlElement const& child) {
        validateTagName(&child, "Value");
        ElementReader const reader(child);
        auto const label = reader.getRequired(LABEL);
        auto const number = enumerationNumber(reader.getOptional(VALUE).value_or(std::to_string(nextNumber)));
        definition->addEnumValue(label.c_str(), number);
        nextNumber = number + 1L;
    });
    Manager::getInstance()->registerEnumDefinition(definition.get());
    static_cast<void>(definition.release()); // the manager's now
}

void ConfigurationRegistryLoader::Impl::processParameterElement(XmlElement const& element) {
    validateTagName(&element, "Parameter");
    ElementReader const reader(element);
    auto const id = reader.getRequired(ID);
    auto const name = reader.getRequired(NAME);
    auto const description = reader.getRequired(DESCRIPTION);
    auto const type = valueTypeOf(reader.getRequired(TYPE));
    auto const valueName = reader.getOptional(VALUE_NAME);
    auto const defaultValue = reader.getOptional(DEFAULT);
    auto const validator = reader.getOptional(VALIDATOR);
    ParameterEnumDefinition const* enumeration = nullptr;
    if (type == Parameter::ENUM_PARAMETER) {
        auto const enumType = reader.getRequired(ENUM_TYPE);
        enumeration = Manager::getInstance()->getEnumDefinition(enumType.c_str());
        if (!enumeration) {
            throw ConfigurationException("The \"%s\" enumeration was not found", enumType.c_str());
        }
    }
    constexpr bool isOptional = false;
    constexpr bool isUnbounded = false;
    constexpr bool isHidden = false;
    auto* const parameter =
        Parameter::Create(id.c_str(), name.c_str(), description.c_str(), isOptional, isUnbounded, type,
                          textOrNull(defaultValue), textOrNull(valueName), textOrNull(validator), isHidden);
    if (enumeration) {
        parameter->setEnumDefinition(enumeration);
    }
}

void ConfigurationRegistryLoader::Impl::processGroupElement(XmlElement const& element) {
    validateTagName(&element, "Group");
    ElementReader const reader(element);
    auto const id = reader.getRequired(ID);
    auto const name = reader.getRequired(NAME);
    auto const description = reader.getRequired(DESCRIPTION);
    OpenGroup const open(*this, *ParameterGroup::CreateGroup(id.c_str(), name.c_str(), description.c_str()));
    processSpecificationItemGroupSection(element);
}

void ConfigurationRegistryLoader::Impl::processSpecificationElement(XmlElement const& element) {
    if (!isNamed(element, "Specification")) {
        refuseElement(element);
    }
    auto const* const root = processContainerSection(element);
    auto specification = std::make_unique<Specification>(root->getId(), root->getDescription());
    Manager::getInstance()->registerSpecification(specification.get());
    static_cast<void>(specification.release()); // the manager's now
}

void ConfigurationRegistryLoader::Impl::processSpecificationItemGroupSection(XmlElement const& element) {
    static constexpr Reader ITEMS[] = {
        {"Container", &Impl::processContainerElement},
        {"MutuallyExclusive", &Impl::processMutuallyExclusiveElement},
        {"ParameterRef", &Impl::processParameterRefElement},
        {"GroupRef", &Impl::processGroupRefElement},
    };
    forEachChild(element, [this](XmlElement const& child) {
        auto const* const item =
            std::ranges::find_if(ITEMS, [&child](Reader const& reader) { return isNamed(child, reader.name); });
        if (item == std::end(ITEMS)) {
            refuseElement(child);
        }
        (this->*item->read)(child);
    });
}

void ConfigurationRegistryLoader::Impl::processContainerElement(XmlElement const& element) {
    processContainerSection(element);
}

ParameterGroup* ConfigurationRegistryLoader::Impl::processContainerSection(XmlElement const& element) {
    ElementReader const reader(element);
    auto const id = reader.getRequired(ID);
    auto const name = reader.getRequired(NAME);
    auto const description = reader.getRequired(DESCRIPTION);
    bool const isOptional = reader.getFlag(OPTIONAL).value_or(false);
    bool const isUnbounded = reader.getFlag(UNBOUNDED).value_or(false);
    auto* const container =
        ParameterGroup::CreateContainer(id.c_str(), name.c_str(), description.c_str(), isOptional, isUnbounded);
    addToOpenGroup(container);
    OpenGroup const open(*this, *container);
    processSpecificationItemGroupSection(element);
    return container;
}

void ConfigurationRegistryLoader::Impl::processMutuallyExclusiveElement(XmlElement const& element) {
    ElementReader const reader(element);
    auto const id = reader.getRequired(ID);
    auto const name = reader.getRequired(NAME);
    auto const description = reader.getOptional(DESCRIPTION);
    bool const isOptional = reader.getFlag(OPTIONAL).value_or(false);
    auto* const constraint =
        ParameterGroup::CreateMutuallyExclusive(id.c_str(), name.c_str(), textOrNull(description), isOptional);
    addToOpenGroup(constraint);
    OpenGroup const open(*this, *constraint);
    processSpecificationItemGroupSection(element);
}

void ConfigurationRegistryLoader::Impl::processParameterRefElement(XmlElement const& element) {
    ElementReader const reader(element);
    auto const id = reader.getRequired(ID);
    auto const description = reader.getOptional(DESCRIPTION);
    auto const defaultValue = reader.getOptional(DEFAULT);
    auto* const item = Manager::getInstance()->getParameterItem(id.c_str(), ParameterItem::PARAMETER);
    if (!item) {
        throw ConfigurationException("Parameter \"%s\" was not found", id.c_str());
    }
    auto* const parameter = static_cast<Parameter*>(item);
    bool const isOptional = reader.getFlag(OPTIONAL).value_or(parameter->isOptional());
    bool const isUnbounded = reader.getFlag(UNBOUNDED).value_or(parameter->isUnbounded());
    bool const isHidden = reader.getFlag(HIDDEN).value_or(parameter->isHidden());
    bool const isRefined = description || defaultValue || isOptional != parameter->isOptional() ||
                           isUnbounded != parameter->isUnbounded() || isHidden != parameter->isHidden();
    addToOpenGroup(isRefined ? ParameterSpecialization::Create(id.c_str(), textOrNull(description), isOptional,
                                                               isUnbounded, textOrNull(defaultValue), isHidden)
                             : parameter);
}

void ConfigurationRegistryLoader::Impl::processGroupRefElement(XmlElement const& element) {
    auto const id = ElementReader(element).getRequired(ID);
    auto* const item = Manager::getInstance()->getParameterItem(id.c_str(), ParameterItem::PARAMETER_GROUP);
    if (!item) {
        throw ConfigurationException("Group\"%s\" was not found", id.c_str());
    }
    auto* const group = static_cast<ParameterGroup*>(item);
    if (group->getGroupType() != ParameterGroup::CONSTRAINT || group->itemsAreExclusive()) {
        throw ConfigurationException("\"%s\" is not a group", id.c_str());
    }
    mUnfoldedItems += checkReference(*group).items;
    addToOpenGroup(group);
}

/// Of the open groups only the outermost can be one that a GroupRef may name: Group elements do not stand in each
/// other.
UnfoldedSize const& ConfigurationRegistryLoader::Impl::checkReference(ParameterGroup const& group) {
    if (&group == mOpenGroups.front()) {
        throw ConfigurationException("Group \"%s\" cannot contain itself", group.getId());
    }
    auto const& size = mUnfoldedSizes.of(group);
    if (mUnfoldedItems + 1 + size.items > UnfoldedSize::MAX_ITEMS) {
        throw ConfigurationException("Group \"%s\" unfolds to too many items", group.getId());
    }
    if (mOpenGroups.size() + 1 + size.levels > UnfoldedSize::MAX_LEVELS) {
        throw ConfigurationException("Group \"%s\" unfolds to too many levels", group.getId());
    }
    return size;
}

void ConfigurationRegistryLoader::Impl::addToOpenGroup(ParameterItem* item) {
    if (!mOpenGroups.empty()) {
        mOpenGroups.back()->addItem(item);
        ++mUnfoldedItems;
    }
}

ConfigurationRegistryLoader::Impl::OpenGroup::OpenGroup(Impl& impl, ParameterGroup& group)
    : mOpenGroups(impl.mOpenGroups) {
    if (mOpenGroups.empty()) {
        impl.mUnfoldedItems = 0;
    }
    mOpenGroups.push_back(&group);
}

} // namespace kivo::configuration
