#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/ValueGroup.h>
#include <configuration/ValueGroupIterator.h>

#include "schema/ContractChecks.h"

namespace kivo::configuration {

class ValueGroup::Impl {
public:
    ParameterValueGroup const* mValueGroup;
};

namespace {

/// A null handle can be copied and asked isNull(), nothing else.
void requireGroup(ValueGroup const& group) {
    if (group.isNull()) {
        throw ConfigurationException("Null ValueGroup");
    }
}

/// Takes the item as what every node is: a look-up may have found a value.
void requireGroupItem(ParameterValueItem const* mValueGroup) {
    KIVO_REQUIRE(!mValueGroup || mValueGroup->getItemType() == ParameterValueGroup::PARAMETER_VALUE_GROUP);
}

} // namespace

ValueGroup::ValueGroup(ParameterValueGroup const* group) : mImpl(new Impl{group}) { requireGroupItem(group); }

ValueGroup::ValueGroup(ValueGroup const& other) : mImpl(std::make_unique<Impl>(*other.mImpl)) {}

ValueGroup& ValueGroup::operator=(ValueGroup const& other) {
    *mImpl = *other.mImpl;
    return *this;
}

ValueGroup::~ValueGroup() = default;

ParameterValueGroup const* ValueGroup::getCurrentValueGroup() const { return mImpl->mValueGroup; }

bool ValueGroup::isNull() const { return !mImpl->mValueGroup; }

Value ValueGroup::getValue(char const* name) const {
    requireGroup(*this);
    return {getCurrentValueGroup()->getValue(name), false};
}

ValueIterator ValueGroup::getValueIterator(char const* name) const {
    requireGroup(*this);
    return ValueIterator(getCurrentValueGroup()->getValue(name));
}

ValueGroup ValueGroup::getValueGroup(char const* name) const {
    requireGroup(*this);
    auto const* item = getCurrentValueGroup()->getItem(name);
    if (!item) {
        throw ConfigurationException("The \"%s\" value group was not found", name);
    }
    requireGroupItem(item);
    return ValueGroup(static_cast<ParameterValueGroup const*>(item));
}

ValueGroupIterator ValueGroup::getValueGroupIterator(char const* name) const {
    requireGroup(*this);
    return {getCurrentValueGroup(), name};
}

} // namespace kivo::configuration
