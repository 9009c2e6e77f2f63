#include "BareParse.h"

#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <algorithm>
#include <ctime>

namespace kivo::benchmarks {

namespace {

double median(std::vector<double>& values) {
    auto const middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return middle == values.end() ? 0 : *middle;
}

} // namespace

BareParse::BareParse(benchmark::State& state, std::string path) : mState(state), mPath(std::move(path)) {
    xercesc::XMLPlatformUtils::Initialize();
}

BareParse::~BareParse() {
    xercesc::XMLPlatformUtils::Terminate();
    auto const bare = median(mBare);
    auto const work = median(mWork);
    mState.counters["bare"] = bare;
    mState.counters["ratio"] = work / bare;
    mState.counters["each"] = work / static_cast<double>(mState.range(0));
}

double BareParse::processorTime() {
    std::timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

void BareParse::parse() const {
    xercesc::XercesDOMParser parser;
    parser.setValidationScheme(xercesc::XercesDOMParser::Val_Never);
    parser.setDoNamespaces(true);
    parser.parse(mPath.c_str());
    benchmark::DoNotOptimize(parser.getDocument());
}

} // namespace kivo::benchmarks
