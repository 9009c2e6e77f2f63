#pragma once

// Schema items by named fields. The create… functions register with the Manager, which owns the items:
//
//     createSpecification({.id = "tool"}, {createParameter({.id = "port", .type = Parameter::INT_PARAMETER}),
//                                          createContainer({.id = "disk", .unbounded = true}, {...})});
//
// An Items object makes items that no manager knows, and owns them:
//
//     Items items;
//     auto* root = items.group({.id = "root"}, {items.parameter({.id = "a"}), items.parameter({.id = "b"})});

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValidator.h>
#include <configuration/Specification.h>

#include <memory>
#include <string>
#include <vector>

namespace kivo::test {

/// Stands for a name that is the same text as the id.
inline constexpr char SAME_AS_ID[] = "<id>";

struct ParameterFields {
    char const* id = "id";
    char const* name = SAME_AS_ID;
    char const* description = "Description";
    bool optional = false;
    bool unbounded = false;
    configuration::Parameter::ValueType type = configuration::Parameter::STRING_PARAMETER;
    char const* defaultValue = nullptr;
    char const* valueName = nullptr;
    char const* validator = nullptr;
    bool hidden = false;
};

/// What a role does not take, its create… function ignores.
struct GroupFields {
    char const* id = "id";
    char const* name = SAME_AS_ID;
    char const* description = "Description";
    bool optional = false;
    bool unbounded = false;
    bool exclusive = false;
    configuration::ParameterGroup::GroupType type = configuration::ParameterGroup::CONTAINER;
};

/// The role of a group, such as "Container optional unbounded" or "Constraint exclusive".
std::string describe(configuration::ParameterGroup const& group);

using ItemList = std::vector<configuration::ParameterItem*>;

configuration::Parameter* createParameter(ParameterFields const& fields);
configuration::ParameterGroup* createGroup(GroupFields const& fields, ItemList const& items = {});
configuration::ParameterGroup* createContainer(GroupFields const& fields, ItemList const& items = {});
configuration::ParameterGroup* createMutuallyExclusive(GroupFields const& fields, ItemList const& items = {});
/// Registers a container and a specification of its id.
configuration::Specification* createSpecification(GroupFields const& root, ItemList const& items = {});

class Items {
public:
    configuration::Parameter* parameter(ParameterFields const& fields);
    configuration::ParameterGroup* group(GroupFields const& fields, ItemList const& items = {});

private:
    std::vector<std::unique_ptr<configuration::ParameterItem>> mItems;
};

/// Rejects every text that begins with "bad", with the message "<text> was rejected".
class RejectingValidator final : public configuration::ParameterValidator {
public:
    explicit RejectingValidator(char const* name) : ParameterValidator(name) {}

    using ParameterValidator::validate;
    char* validate(char const* value) const override;
};

} // namespace kivo::test
