#include "kernel/kvProcessInit.h"

#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/ValueGroupIterator.h>

#include "schema/NameComparison.h"
#include "values/IteratorChecks.h"

#include <string>

namespace kivo::configuration {

class ValueGroupIterator::Impl {
public:
    ParameterValueGroup const* mParent;
    std::string mId;
    long mIndex;

    unsigned long count() const { return mParent ? mParent->getNumberOfItems() : 0; }

    bool isOccurrence(ParameterValueItem const& item) const {
        return item.getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP && item.getParameterItem() &&
               equalIgnoringCase(item.getParameterItem()->getId(), mId);
    }
};

ValueGroupIterator::ValueGroupIterator(ParameterValueGroup const* parent, char const* id)
    : ValueGroup(parent), mImpl(new Impl{parent, id ? id : "", -1}) {}

ValueGroupIterator::ValueGroupIterator(ValueGroupIterator const& other)
    : ValueGroup(other), mImpl(std::make_unique<Impl>(*other.mImpl)) {}

ValueGroupIterator& ValueGroupIterator::operator=(ValueGroupIterator const& other) {
    ValueGroup::operator=(other);
    *mImpl = *other.mImpl;
    return *this;
}

ValueGroupIterator::~ValueGroupIterator() = default;

ParameterValueGroup const* ValueGroupIterator::getCurrentValueGroup() const {
    auto const position = checkedIteratorPosition(mImpl->mIndex, mImpl->count());
    return static_cast<ParameterValueGroup const*>(mImpl->mParent->getItem(position));
}

bool ValueGroupIterator::next() {
    if (isNull()) {
        return false;
    }
    auto const count = static_cast<long>(mImpl->count());
    while (mImpl->mIndex < count) {
        ++mImpl->mIndex;
        if (mImpl->mIndex < count &&
            mImpl->isOccurrence(*mImpl->mParent->getItem(static_cast<unsigned long>(mImpl->mIndex)))) {
            return true;
        }
    }
    return false;
}

} // namespace kivo::configuration
