#include "BareParse.h"
#include "Installation.h"
#include "Subjects.h"
#include "support/TemporaryInstallation.h"

#include <benchmark/benchmark.h>

#include <configuration/Manager.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include <memory>

namespace {

using namespace kivo::benchmarks;
using namespace kivo::configuration;

constexpr char const* SPECIFICATION = "tool";
constexpr std::size_t CONTAINER_SIZE = 50;

std::string containerName(std::size_t index) { return "container" + std::to_string(index / CONTAINER_SIZE); }

/// Declares an optional int, with a default, for each name, in containers.
void declare(Manager& manager, Subjects const& subjects) {
    auto* root = ParameterGroup::CreateContainer(SPECIFICATION, SPECIFICATION, "the tool", false, false);
    ParameterGroup* group = nullptr;
    for (std::size_t i = 0; i < subjects.count(); ++i) {
        if (i % CONTAINER_SIZE == 0) {
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

/// Gives one of every so many parameters a value.
std::string valuesFor(Subjects const& subjects, std::size_t step) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<tool>\n";
    for (std::size_t i = 0; i < subjects.count(); i += step) {
        if (i % CONTAINER_SIZE == 0) {
            text += (i > 0 ? "/>\n    <" : "    <") + containerName(i);
        }
        text += " " + subjects.names[i] + "=\"" + subjects.texts[i] + "\"";
    }
    return text + "/>\n</tool>\n";
}

/// From the name of the file to checked and completed settings.
void requestFromValuesFile(benchmark::State& state, std::size_t step) {
    useEmptyInstallation();
    Subjects const subjects(static_cast<std::size_t>(state.range(0)));
    kivo::test::TemporaryDirectory const directory;
    auto const file = directory.write("values.xml", valuesFor(subjects, step));
    auto& manager = *Manager::getInstance();
    manager.reset();
    declare(manager, subjects);
    BareParse bareParse(state, file);
    for (auto _ : state) {
        bareParse.compareWith([&] {
            manager.enableConfiguration(false, file.c_str(), 0, nullptr);
            ParameterValueGroup settings(nullptr);
            manager.getValues(SPECIFICATION, settings, 0);
            benchmark::DoNotOptimize(settings.getNumberOfItems());
        });
    }
    manager.reset();
}

void sizes(benchmark::internal::Benchmark* registered) {
    registered->RangeMultiplier(10)->Range(10, 10000)->UseManualTime();
}

BENCHMARK_CAPTURE(requestFromValuesFile, all, 1)->Apply(sizes);
BENCHMARK_CAPTURE(requestFromValuesFile, half, 2)->Apply(sizes);

} // namespace
