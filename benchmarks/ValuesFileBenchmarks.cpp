#include "BareParse.h"
#include "Installation.h"
#include "Tool.h"
#include "support/TemporaryInstallation.h"

#include <benchmark/benchmark.h>

#include <configuration/Manager.h>
#include <configuration/ParameterValueGroup.h>

namespace {

using namespace kivo::benchmarks;
using namespace kivo::configuration;

/// Gives one of every so many parameters a value.
std::string valuesFor(Subjects const& subjects, std::size_t step) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<tool>\n";
    for (std::size_t i = 0; i < subjects.count(); i += step) {
        if (beginsContainer(i, 0)) {
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
    declareTool(manager, subjects, 0);
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
