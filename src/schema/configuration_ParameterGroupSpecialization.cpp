#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/Manager.h>
#include <configuration/ParameterGroupSpecialization.h>

#include "schema/ItemKinds.h"

namespace kivo::configuration {

namespace {

/// The registered group of an id. @param kind "Group", "Mutually Exclusive" or "Container", for the message
ParameterGroup const& findBase(char const* kind, char const* id) {
    auto const* base = asGroup(Manager::getInstance()->getParameterItem(id, ParameterItem::PARAMETER_GROUP));
    if (!base) {
        throw ConfigurationException("%s to specialize \"%s\" was not found", kind, id);
    }
    return *base;
}

ParameterGroupSpecialization* registerSpecialization(std::unique_ptr<ParameterGroupSpecialization> specialization) {
    Manager::getInstance()->addParameterItemSpecialization(specialization.get());
    return specialization.release();
}

} // namespace

ParameterGroupSpecialization::ParameterGroupSpecialization(char const* id, char const* description, bool optional,
                                                           ItemsExclusiveType itemsExclusive, bool unbounded,
                                                           GroupType groupType)
    : ParameterGroup(id, id, description, optional, itemsExclusive, unbounded, groupType) {}

ParameterGroupSpecialization::~ParameterGroupSpecialization() = default;

bool ParameterGroupSpecialization::isSpecialized() const { return true; }

ParameterGroupSpecialization* ParameterGroupSpecialization::CreateGroup(char const* id) {
    auto const& base = findBase("Group", id);
    if (base.getGroupType() != CONSTRAINT || base.itemsAreExclusive()) {
        throw ConfigurationException("Group to specialize \"%s\" is not a group constraint", id);
    }
    return registerSpecialization(std::make_unique<ParameterGroupSpecialization>(
        base.getId(), base.getDescription(), true, ITEMS_NOT_EXCLUSIVE, false, CONSTRAINT));
}

ParameterGroupSpecialization*
ParameterGroupSpecialization::CreateMutuallyExclusive(char const* id, char const* description, bool optional) {
    auto const& base = findBase("Mutually Exclusive", id);
    if (base.getGroupType() != CONSTRAINT || !base.itemsAreExclusive()) {
        throw ConfigurationException("Mutually Exclusive to specialize \"%s\" is not a mutually exclusive constraint",
                                     id);
    }
    return registerSpecialization(
        std::make_unique<ParameterGroupSpecialization>(base.getId(), description ? description : base.getDescription(),
                                                       optional, ITEMS_MUTUALLY_EXCLUSIVE, false, CONSTRAINT));
}

ParameterGroupSpecialization* ParameterGroupSpecialization::CreateContainer(char const* id, char const* description,
                                                                            bool optional, bool unbounded) {
    auto const& base = findBase("Container", id);
    if (base.getGroupType() != CONTAINER) {
        throw ConfigurationException("Container to specialize \"%s\" is not a container", id);
    }
    return registerSpecialization(
        std::make_unique<ParameterGroupSpecialization>(base.getId(), description ? description : base.getDescription(),
                                                       optional, ITEMS_NOT_EXCLUSIVE, unbounded, CONTAINER));
}

} // namespace kivo::configuration
