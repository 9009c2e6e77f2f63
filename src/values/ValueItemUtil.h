#pragma once

#include <configuration/ParameterValueVisitor.h>

namespace kivo::configuration {

/// Lends code that is not a visitor what only visitors may do to value items.
class ValueItemUtil final : public ParameterValueVisitor {
public:
    ValueItemUtil() : ParameterValueVisitor(false) {}

    using ParameterValueVisitor::assignParameterItem;
    using ParameterValueVisitor::setItemState;
    using ParameterValueVisitor::setParameterItemId;
};

} // namespace kivo::configuration
