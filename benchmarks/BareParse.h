#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace kivo::benchmarks {

/// Measures the work of reading an XML file beside what its parser needs alone: a document, with namespaces and without
/// validation. The XML library stays open throughout. The two alternate, and medians of processor time are compared, so
/// that a busy machine disturbs both or neither.
///
/// The counters: "bare", the time of the parse; "ratio", how many times as long the work takes; "each", the time of the
/// work for each parameter, which must not grow with their number.
class BareParse {
public:
    /// @param path the file that the work reads
    BareParse(benchmark::State& state, std::string path);
    /// Sets the counters.
    ~BareParse();
    BareParse(BareParse const&) = delete;
    BareParse& operator=(BareParse const&) = delete;

    /// Parses once and works once; belongs into the loop of the benchmark, which uses manual time.
    template <class Work>
    void compareWith(Work work) {
        mBare.push_back(secondsOf([this] { parse(); }));
        mWork.push_back(secondsOf(work));
        mState.SetIterationTime(mWork.back());
    }

private:
    template <class Action>
    static double secondsOf(Action action) {
        auto const start = processorTime();
        action();
        return processorTime() - start;
    }

    static double processorTime();
    void parse() const;

    benchmark::State& mState;
    std::string mPath;
    std::vector<double> mBare;
    std::vector<double> mWork;
};

} // namespace kivo::benchmarks
