#include "support/Schema.h"

#include <configuration/Manager.h>
#include <configuration/Memory.h>

namespace kivo::test {

using namespace configuration;

namespace {

template <class Fields>
char const* nameOf(Fields const& fields) {
    return fields.name == SAME_AS_ID ? fields.id : fields.name;
}

ParameterGroup* fill(ParameterGroup* group, ItemList const& items) {
    for (auto* item : items) {
        group->addItem(item);
    }
    return group;
}

} // namespace

std::string describe(ParameterGroup const& group) {
    return group.getItemTypeName() + std::string(group.itemsAreExclusive() ? " exclusive" : "") +
           (group.isOptional() ? " optional" : "") + (group.isUnbounded() ? " unbounded" : "");
}

Parameter* createParameter(ParameterFields const& fields) {
    return Parameter::Create(fields.id, nameOf(fields), fields.description, fields.optional, fields.unbounded,
                             fields.type, fields.defaultValue, fields.valueName, fields.validator, fields.hidden);
}

ParameterGroup* createGroup(GroupFields const& fields, ItemList const& items) {
    return fill(ParameterGroup::CreateGroup(fields.id, nameOf(fields), fields.description), items);
}

ParameterGroup* createContainer(GroupFields const& fields, ItemList const& items) {
    return fill(ParameterGroup::CreateContainer(fields.id, nameOf(fields), fields.description, fields.optional,
                                                fields.unbounded),
                items);
}

ParameterGroup* createMutuallyExclusive(GroupFields const& fields, ItemList const& items) {
    return fill(ParameterGroup::CreateMutuallyExclusive(fields.id, nameOf(fields), fields.description, fields.optional),
                items);
}

Specification* createSpecification(GroupFields const& root, ItemList const& items) {
    createContainer(root, items);
    auto specification = std::make_unique<Specification>(root.id, root.description);
    Manager::getInstance()->registerSpecification(specification.get());
    return specification.release();
}

Parameter* Items::parameter(ParameterFields const& fields) {
    auto made = std::make_unique<Parameter>(fields.id, nameOf(fields), fields.description, fields.optional,
                                            fields.unbounded, fields.type, fields.defaultValue, fields.valueName,
                                            fields.validator, fields.hidden);
    auto* parameter = made.get();
    mItems.push_back(std::move(made));
    return parameter;
}

ParameterGroup* Items::group(GroupFields const& fields, ItemList const& items) {
    auto const exclusive =
        fields.exclusive ? ParameterGroup::ITEMS_MUTUALLY_EXCLUSIVE : ParameterGroup::ITEMS_NOT_EXCLUSIVE;
    auto made = std::make_unique<ParameterGroup>(fields.id, nameOf(fields), fields.description, fields.optional,
                                                 exclusive, fields.unbounded, fields.type);
    auto* group = made.get();
    mItems.push_back(std::move(made));
    return fill(group, items);
}

char* RejectingValidator::validate(char const* value) const {
    std::string const text(value);
    return text.starts_with("bad") ? cloneString((text + " was rejected").c_str()) : nullptr;
}

} // namespace kivo::test
