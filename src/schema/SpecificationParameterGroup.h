#pragma once

#include <configuration/ParameterGroup.h>

namespace kivo::configuration {

class Specification;

/// A container above a specification's root group, so that the root group is walked as an ordinary item. Destroying it
/// does not touch the root group.
class SpecificationParameterGroup final : public ParameterGroup {
public:
    explicit SpecificationParameterGroup(Specification const& specification);
};

} // namespace kivo::configuration
