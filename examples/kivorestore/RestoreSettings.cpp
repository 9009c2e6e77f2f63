#include "RestoreSettings.h"

#include "IdentifierValidator.h"

#include <configuration/Manager.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterSpecialization.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include <memory>

using namespace kivo::configuration;

namespace {

constexpr char const* TOOL = "kivorestore";

// The factories take ten arguments; here the usual ones have defaults, and the others have names.
struct Properties {
    bool optional = true;
    bool unbounded = false;
    char const* defaultValue = nullptr;
    char const* valueName = nullptr;
    char const* validator = nullptr;
    bool hidden = false;
};

// Id and name are the same text: given values are bound by the id, but checked and abbreviated by the name. Registry
// files of the installation may have declared the id already, for this tool and others; then this is what the tool
// makes of it.
Parameter* add(ParameterGroup& group, char const* name, char const* description, Parameter::ValueType type,
               Properties const& properties) {
    Parameter* parameter =
        Manager::getInstance()->getParameterItem(name)
            ? ParameterSpecialization::Create(name, description, properties.optional, properties.unbounded,
                                              properties.defaultValue, properties.hidden)
            : Parameter::Create(name, name, description, properties.optional, properties.unbounded, type,
                                properties.defaultValue, properties.valueName, properties.validator, properties.hidden);
    group.addItem(parameter);
    return parameter;
}

template <class Group>
Group& addGroup(ParameterGroup& parent, Group* group) {
    parent.addItem(group);
    return *group;
}

void addSource(ParameterGroup& root) {
    add(root, "source", "The backup: a directory, or host::directory", Parameter::STRING_PARAMETER,
        {.optional = false, .valueName = "location", .validator = "storageLocation"});
    add(root, "database", "Name of the database to make", Parameter::STRING_PARAMETER,
        {.optional = false, .valueName = "name", .validator = "identifier"});
    add(root, "table", "Restore only this table; may be given several times", Parameter::STRING_PARAMETER,
        {.unbounded = true, .valueName = "name"});
}

void addChoices(ParameterGroup& root) {
    auto& point = addGroup(root, ParameterGroup::CreateMutuallyExclusive("point", "point", nullptr, false));
    add(point, "latest", "Restore the newest state", Parameter::BOOLEAN_PARAMETER, {.defaultValue = "true"});
    add(point, "transaction", "Restore the state after this transaction", Parameter::OID_PARAMETER,
        {.defaultValue = "", .valueName = "id"});

    auto& existing = addGroup(root, ParameterGroup::CreateMutuallyExclusive("existing", "existing", nullptr, true));
    add(existing, "overwrite", "Replace a database of this name", Parameter::BOOLEAN_PARAMETER, {});
    add(existing, "rename", "Give a database of this name another one", Parameter::STRING_PARAMETER,
        {.defaultValue = "", .valueName = "name", .validator = "identifier"});
}

void addWork(Manager& manager, ParameterGroup& root) {
    auto onError = std::make_unique<ParameterEnumDefinition>("onError");
    onError->addEnumValue("stop", 0);
    onError->addEnumValue("skip", 1);
    onError->addEnumValue("retry", 10);
    add(root, "onError", "What to do with a page that cannot be read: stop, skip or retry", Parameter::ENUM_PARAMETER,
        {.defaultValue = "stop", .valueName = "action"})
        ->setEnumDefinition(onError.get());
    manager.registerEnumDefinition(onError.release());
    add(root, "streams", "Number of streams that write", Parameter::UINT_PARAMETER,
        {.defaultValue = "4", .valueName = "count"});
    add(root, "memory", "Share of the memory to use", Parameter::DOUBLE_PARAMETER,
        {.defaultValue = "0.25", .valueName = "share"});
    add(root, "niceness", "Priority of the process", Parameter::INT_PARAMETER, {.valueName = "number"});
}

void addSections(ParameterGroup& root) {
    auto& decryption = addGroup(root, ParameterGroup::CreateGroup("decryption", "decryption", "How to decrypt"));
    add(decryption, "keyFile", "File that holds the key", Parameter::STRING_PARAMETER,
        {.defaultValue = "", .valueName = "file"});
    add(decryption, "keySlot", "Which of its keys", Parameter::UINT_PARAMETER,
        {.defaultValue = "0", .valueName = "number"});

    auto& staging =
        addGroup(root, ParameterGroup::CreateContainer("staging", "staging", "Room to work in", true, false));
    add(staging, "directory", "Where it is", Parameter::STRING_PARAMETER,
        {.defaultValue = "/var/tmp", .valueName = "directory"});
    add(staging, "limit", "How much of it, in megabytes", Parameter::UINT_PARAMETER,
        {.defaultValue = "1024", .valueName = "size"});

    auto& volume = addGroup(root, ParameterGroup::CreateContainer("volume", "volume", "A volume", true, true));
    add(volume, "label", "What it is called", Parameter::STRING_PARAMETER, {.defaultValue = "", .valueName = "text"});
}

void addCommon(ParameterGroup& root) {
    // A hidden parameter in the last place would end the usage text with an empty line.
    add(root, "client", "Who asks for the restore", Parameter::STRING_PARAMETER, {.defaultValue = "", .hidden = true});
    add(root, "explain", "Print where each setting comes from and what is wrong, and do nothing else",
        Parameter::BOOLEAN_PARAMETER, {});
    add(root, "help", "Print this text and do nothing else", Parameter::BOOLEAN_PARAMETER, {});
    add(root, "quiet", "With --help: print only the usage", Parameter::BOOLEAN_PARAMETER, {});
}

ParameterValueGroup& addSection(ParameterValueGroup& parent, char const* id) {
    auto* section = std::make_unique<ParameterValueGroup>(id).release();
    parent.addItem(section); // the new owner, even when memory runs out
    return *section;
}

} // namespace

Specification const* describeRestore(Manager& manager) {
    manager.addValidator(std::make_unique<IdentifierValidator>().release());

    ParameterGroup& root = *ParameterGroup::CreateContainer(TOOL, TOOL, "Restores a database", false, false);
    addSource(root);
    addChoices(root);
    addWork(manager, root);
    addSections(root);
    addCommon(root);

    auto* specification = std::make_unique<Specification>(TOOL, "Restores a database from a backup").release();
    manager.registerSpecification(specification);
    return specification;
}

ParameterValueGroup restoreValues() {
    ParameterValueGroup values(nullptr);
    ParameterValueGroup& settings = addSection(values, TOOL);
    settings.addValue("client", TOOL);
    addSection(settings, "staging").addValue("limit", "2048");
    addSection(settings, "volume").addValue("label", "A");
    addSection(settings, "volume").addValue("label", "B");
    return values;
}
