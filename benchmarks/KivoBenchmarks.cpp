#include "Allocations.h"
#include "Installation.h"
#include "Subjects.h"
#include "Tool.h"

#include <benchmark/benchmark.h>

#include <configuration/CommandLineValueProvider.h>
#include <configuration/Flags.h>
#include <configuration/Manager.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/ValueGroup.h>

#include <chrono>
#include <memory>

namespace {

using namespace kivo::benchmarks;
using namespace kivo::configuration;

enum Layout : int { FLAT, IN_CONTAINERS };

Manager& freshManager() {
    useEmptyInstallation();
    Manager::shutdown();
    return *Manager::getInstance();
}

/// What the command line gives stands at the top: a container has no flags.
std::size_t firstInContainer(Subjects const& subjects, Layout layout) {
    return layout == IN_CONTAINERS ? subjects.fromCommandLine() : subjects.count();
}

ParameterValueGroup* addGroup(ParameterValueGroup& parent, char const* id) {
    auto* group = std::make_unique<ParameterValueGroup>(id).release();
    parent.addItem(group);
    return group;
}

void fillApplicationValues(ParameterValueGroup& values, Subjects const& subjects, Layout layout) {
    auto* root = addGroup(values, SPECIFICATION);
    auto* group = root;
    auto const first = subjects.fromCommandLine();
    for (std::size_t i = first; i < first + subjects.fromApplication(); ++i) {
        if (beginsContainer(i, firstInContainer(subjects, layout))) {
            group = addGroup(*root, containerName(i).c_str());
        }
        group->addValue(subjects.names[i].c_str(), subjects.texts[i].c_str());
    }
}

void declareParameters(benchmark::State& state, Layout layout) {
    Subjects const subjects(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        auto& manager = freshManager();
        auto const start = std::chrono::steady_clock::now();
        declareTool(manager, subjects, firstInContainer(subjects, layout));
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
}

void request(benchmark::State& state, Layout layout, int flags) {
    Subjects const subjects(static_cast<std::size_t>(state.range(0)));
    auto& manager = freshManager();
    declareTool(manager, subjects, firstInContainer(subjects, layout));
    auto const arguments = subjects.argumentsWith("-");
    auto const argv = pointersTo(arguments);
    auto* commandLine = std::make_unique<CommandLineValueProvider>(1).release();
    manager.registerProvider(commandLine);
    ParameterValueGroup values(nullptr);
    fillApplicationValues(values, subjects, layout);
    for (auto _ : state) {
        commandLine->enableProvider(static_cast<int>(argv.size()), argv.data(), flags);
        manager.setApplicationValues(values, flags);
        benchmark::DoNotOptimize(manager.getValueGroup(SPECIFICATION, true, flags).isNull());
    }
}

void readTyped(benchmark::State& state) {
    Subjects const subjects(static_cast<std::size_t>(state.range(0)));
    auto& manager = freshManager();
    declareTool(manager, subjects, subjects.count());
    ParameterValueGroup values(nullptr);
    fillApplicationValues(values, subjects, FLAT);
    manager.setApplicationValues(values, 0);
    auto const settings = manager.getValueGroup(SPECIFICATION, true, 0);
    std::size_t next = 0;
    auto const before = countedAllocations();
    for (auto _ : state) {
        benchmark::DoNotOptimize(settings.getValue(subjects.names[subjects.readOrder[next]].c_str()).asInteger());
        next = next + 1 == subjects.count() ? 0 : next + 1;
    }
    // One for the handle that a read makes: its state.
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(countedAllocations() - before), benchmark::Counter::kAvgIterations);
}

void sizes(benchmark::internal::Benchmark* registered) { registered->RangeMultiplier(10)->Range(10, 10000); }

BENCHMARK_CAPTURE(declareParameters, Kivo_flat, FLAT)->Apply(sizes)->UseManualTime()->MinTime(0.2);
BENCHMARK_CAPTURE(declareParameters, Kivo_containers, IN_CONTAINERS)->Apply(sizes)->UseManualTime()->MinTime(0.2);
BENCHMARK_CAPTURE(request, Kivo_flat, FLAT, 0)->Apply(sizes);
BENCHMARK_CAPTURE(request, Kivo_containers, IN_CONTAINERS, 0)->Apply(sizes);
BENCHMARK_CAPTURE(request, Kivo_flat_abbreviations, FLAT, RESOLVE_FLAG_NAMES)->Apply(sizes);
BENCHMARK_CAPTURE(request, Kivo_containers_abbreviations, IN_CONTAINERS, RESOLVE_FLAG_NAMES)->Apply(sizes);
BENCHMARK(readTyped)->Name("readTyped/Kivo")->Apply(sizes);

} // namespace
