#include "kernel/kvProcessInit.h"

#include <configuration/ParameterValue.h>
#include <configuration/ValueIterator.h>

#include "values/IteratorChecks.h"

namespace kivo::configuration {

class ValueIterator::Impl {
public:
    long mIndex = -1;
};

ValueIterator::ValueIterator(ParameterValue const* value) : Value(value, true), mImpl(std::make_unique<Impl>()) {}

ValueIterator::ValueIterator(ValueIterator const& other) : Value(other), mImpl(std::make_unique<Impl>()) {}

ValueIterator& ValueIterator::operator=(ValueIterator const& other) {
    Value::operator=(other);
    reset();
    return *this;
}

ValueIterator::~ValueIterator() = default;

unsigned long ValueIterator::getCurrentValueIndex() const {
    return checkedIteratorPosition(mImpl->mIndex, getNumberOfValues());
}

bool ValueIterator::next() {
    if (isNull()) {
        return false;
    }
    return ++mImpl->mIndex < static_cast<long>(getNumberOfValues());
}

void ValueIterator::reset() { mImpl->mIndex = -1; }

} // namespace kivo::configuration
