#include "Tool.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/Specification.h>

#include <memory>

namespace kivo::benchmarks {

using namespace configuration;

namespace {

constexpr std::size_t CONTAINER_SIZE = 50;

} // namespace

std::string containerName(std::size_t index) { return "container" + std::to_string(index / CONTAINER_SIZE); }

bool beginsContainer(std::size_t index, std::size_t firstInContainer) {
    return index == firstInContainer || (index > firstInContainer && index % CONTAINER_SIZE == 0);
}

void declareTool(Manager& manager, Subjects const& subjects, std::size_t firstInContainer) {
    auto* root = ParameterGroup::CreateContainer(SPECIFICATION, SPECIFICATION, "the tool", false, false);
    auto* group = root;
    for (std::size_t i = 0; i < subjects.count(); ++i) {
        if (beginsContainer(i, firstInContainer)) {
            auto const name = containerName(i);
            group = ParameterGroup::CreateContainer(name.c_str(), name.c_str(), "a part of the tool", true, false);
            root->addItem(group);
        }
        char const* name = subjects.names[i].c_str();
        group->addItem(Parameter::Create(name, name, "what the parameter is for", true, false, Parameter::INT_PARAMETER,
                                         "7", "number", nullptr, false));
    }
    manager.registerSpecification(std::make_unique<Specification>(SPECIFICATION, "the tool").release());
}

} // namespace kivo::benchmarks
