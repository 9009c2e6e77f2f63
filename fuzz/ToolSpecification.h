#pragma once

#include <configuration/Manager.h>

namespace kivo::configuration {
class ParameterValueGroup;
class Specification;
} // namespace kivo::configuration

namespace kivo::fuzz {

class Environment;

/// What the targets that read values know: a tool with items of all kinds, and a part of it that repeats.
class ToolSpecification {
public:
    /// Starts a manager in the environment, which describes the two.
    explicit ToolSpecification(Environment const& environment);

    configuration::Manager& manager;
    configuration::Specification const& tool;
    configuration::Specification const& part;
};

/// Collects the values of a specification from the manager's providers, and reads them in all ways.
void collectAndRead(configuration::Manager& manager, configuration::Specification const& specification, int flags);

} // namespace kivo::fuzz
