#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace kivo::benchmarks {

/// Measures the work of reading an XML file beside the least that it could be: a parse by Xerces-C, which makes a
/// document, with namespaces and without validation; one by Expat, which makes nothing; and reading the bytes. Xerces-C
/// stays open throughout. All take turns, and medians of processor time are compared, so that a busy machine disturbs
/// all or none.
///
/// The counters: "xerces", "expat" and "bytes", how many times as long as each of these the work takes; "each", the
/// time of the work for each parameter, which must not grow with their number.
class BareParse {
public:
    /// @param path the file that the work reads
    BareParse(benchmark::State& state, std::string path);
    /// Sets the counters.
    ~BareParse();
    BareParse(BareParse const&) = delete;
    BareParse& operator=(BareParse const&) = delete;

    /// Does all once; belongs into the loop of the benchmark, which uses manual time.
    template <class Work>
    void compareWith(Work work) {
        mXerces.push_back(secondsOf([this] { parseWithXerces(); }));
        mExpat.push_back(secondsOf([this] { parseWithExpat(); }));
        mBytes.push_back(secondsOf([this] { readBytes(); }));
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
    void parseWithXerces() const;
    void parseWithExpat() const;
    std::string readBytes() const;

    benchmark::State& mState;
    std::string mPath;
    std::vector<double> mXerces;
    std::vector<double> mExpat;
    std::vector<double> mBytes;
    std::vector<double> mWork;
};

} // namespace kivo::benchmarks
