#include "Subjects.h"

#include <benchmark/benchmark.h>

#include <boost/program_options.hpp>

#include <chrono>

namespace {

using namespace kivo::benchmarks;
namespace po = boost::program_options;

void declare(po::options_description& description, Subjects const& subjects) {
    for (auto const& name : subjects.names) {
        description.add_options()(name.c_str(), po::value<int>()->default_value(7), "what the parameter is for");
    }
}

/// What a parser of the application's own would hand over.
po::parsed_options applicationValues(po::options_description const& description, Subjects const& subjects) {
    po::parsed_options parsed(&description);
    auto const first = subjects.fromCommandLine();
    for (std::size_t i = first; i < first + subjects.fromApplication(); ++i) {
        parsed.options.emplace_back(subjects.names[i], std::vector<std::string>{subjects.texts[i]});
    }
    return parsed;
}

void declareParameters(benchmark::State& state) {
    Subjects const subjects(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        po::options_description description("the tool");
        auto const start = std::chrono::steady_clock::now();
        declare(description, subjects);
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
}

void request(benchmark::State& state, int style) {
    Subjects const subjects(static_cast<std::size_t>(state.range(0)));
    po::options_description description("the tool");
    declare(description, subjects);
    auto const arguments = subjects.argumentsWith("--");
    auto const argv = pointersTo(arguments);
    auto const fromApplication = applicationValues(description, subjects);
    for (auto _ : state) {
        po::variables_map values;
        po::store(fromApplication, values);
        po::store(
            po::command_line_parser(static_cast<int>(argv.size()), argv.data()).options(description).style(style).run(),
            values);
        po::notify(values);
        benchmark::DoNotOptimize(values.size());
    }
}

void readTyped(benchmark::State& state) {
    Subjects const subjects(static_cast<std::size_t>(state.range(0)));
    po::options_description description("the tool");
    declare(description, subjects);
    po::variables_map values;
    po::store(applicationValues(description, subjects), values);
    po::notify(values);
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(values[subjects.names[subjects.readOrder[next]]].as<int>());
        next = next + 1 == subjects.count() ? 0 : next + 1;
    }
}

void sizes(benchmark::internal::Benchmark* registered) { registered->RangeMultiplier(10)->Range(10, 10000); }

constexpr int EXACT = po::command_line_style::default_style & ~po::command_line_style::allow_guessing;

BENCHMARK(declareParameters)->Name("declareParameters/Boost")->Apply(sizes)->UseManualTime()->MinTime(0.2);
BENCHMARK_CAPTURE(request, Boost, EXACT)->Apply(sizes);
BENCHMARK_CAPTURE(request, Boost_abbreviations, po::command_line_style::default_style)->Apply(sizes);
BENCHMARK(readTyped)->Name("readTyped/Boost")->Apply(sizes);

} // namespace
