#pragma once

// Schema items by named fields. The create… functions register with the Manager, which owns the items; an Items object
// makes items that no manager knows, and owns them:
//
//     createContainer({.id = "tool"}, {createParameter({.id = "port", .type = Parameter::INT_PARAMETER})});
//     auto* root = items.group({.id = "root"}, {items.parameter({.id = "a"}), items.parameter({.id = "b"})});

#include <configuration/Memory.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValidator.h>

#include <memory>
#include <string>
#include <vector>

namespace kivo::test {

using configuration::Parameter;
using configuration::ParameterGroup;

struct ParameterFields {
    char const* id = "id";
    char const* name = nullptr; ///< null for the same text as the id
    char const* description = "Description";
    bool optional = false;
    bool unbounded = false;
    Parameter::ValueType type = Parameter::STRING_PARAMETER;
    char const* defaultValue = nullptr;
    char const* valueName = nullptr;
    char const* validator = nullptr;
    bool hidden = false;
};

/// What a role does not take, its create… function ignores.
struct GroupFields {
    char const* id = "id";
    char const* name = nullptr; ///< null for the same text as the id
    char const* description = "Description";
    bool optional = false;
    bool unbounded = false;
    bool exclusive = false;
    ParameterGroup::GroupType type = ParameterGroup::CONTAINER;
};

using ItemList = std::vector<configuration::ParameterItem*>;

inline char const* nameOf(auto const& fields) { return fields.name ? fields.name : fields.id; }

inline ParameterGroup* fill(ParameterGroup* group, ItemList const& items) {
    for (auto* item : items) {
        group->addItem(item);
    }
    return group;
}

inline Parameter* createParameter(ParameterFields const& f) {
    return Parameter::Create(f.id, nameOf(f), f.description, f.optional, f.unbounded, f.type, f.defaultValue,
                             f.valueName, f.validator, f.hidden);
}

inline ParameterGroup* createGroup(GroupFields const& f, ItemList const& items = {}) {
    return fill(ParameterGroup::CreateGroup(f.id, nameOf(f), f.description), items);
}

inline ParameterGroup* createContainer(GroupFields const& f, ItemList const& items = {}) {
    return fill(ParameterGroup::CreateContainer(f.id, nameOf(f), f.description, f.optional, f.unbounded), items);
}

inline ParameterGroup* createMutuallyExclusive(GroupFields const& f, ItemList const& items = {}) {
    return fill(ParameterGroup::CreateMutuallyExclusive(f.id, nameOf(f), f.description, f.optional), items);
}

class Items {
public:
    Parameter* parameter(ParameterFields const& f) {
        return own(new Parameter(f.id, nameOf(f), f.description, f.optional, f.unbounded, f.type, f.defaultValue,
                                 f.valueName, f.validator, f.hidden));
    }
    ParameterGroup* group(GroupFields const& f, ItemList const& items = {}) {
        auto const exclusive =
            f.exclusive ? ParameterGroup::ITEMS_MUTUALLY_EXCLUSIVE : ParameterGroup::ITEMS_NOT_EXCLUSIVE;
        return fill(own(new ParameterGroup(f.id, nameOf(f), f.description, f.optional, exclusive, f.unbounded, f.type)),
                    items);
    }

private:
    template <class Item>
    Item* own(Item* item) {
        mItems.emplace_back(item);
        return item;
    }

    std::vector<std::unique_ptr<configuration::ParameterItem>> mItems;
};

/// The role of a group, such as "Container optional unbounded" or "Constraint exclusive".
inline std::string describe(ParameterGroup const& group) {
    return group.getItemTypeName() + std::string(group.itemsAreExclusive() ? " exclusive" : "") +
           (group.isOptional() ? " optional" : "") + (group.isUnbounded() ? " unbounded" : "");
}

/// Rejects every text that begins with "bad", with the message "<text> was rejected".
class RejectingValidator final : public configuration::ParameterValidator {
public:
    using ParameterValidator::ParameterValidator;
    using ParameterValidator::validate;
    char* validate(char const* value) const override {
        std::string const text(value);
        return text.starts_with("bad") ? configuration::cloneString((text + " was rejected").c_str()) : nullptr;
    }
};

} // namespace kivo::test
