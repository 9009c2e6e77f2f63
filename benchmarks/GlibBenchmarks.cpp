#include "Subjects.h"

#include <benchmark/benchmark.h>

#include <glib.h>

#include <memory>

namespace {

using namespace kivo::benchmarks;

void readTyped(benchmark::State& state) {
    Subjects const subjects(static_cast<std::size_t>(state.range(0)));
    std::unique_ptr<GKeyFile, void (*)(GKeyFile*)> const values(g_key_file_new(), g_key_file_free);
    for (std::size_t i = 0; i < subjects.count(); ++i) {
        g_key_file_set_value(values.get(), "tool", subjects.names[i].c_str(), subjects.texts[i].c_str());
    }
    std::size_t next = 0;
    for (auto _ : state) {
        char const* name = subjects.names[subjects.readOrder[next]].c_str();
        benchmark::DoNotOptimize(g_key_file_get_integer(values.get(), "tool", name, nullptr));
        next = next + 1 == subjects.count() ? 0 : next + 1;
    }
}

BENCHMARK(readTyped)->Name("readTyped/GLib")->RangeMultiplier(10)->Range(10, 10000);

} // namespace
