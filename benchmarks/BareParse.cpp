#include "BareParse.h"

#include <expat.h>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <algorithm>
#include <ctime>
#include <fstream>

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
    auto const work = median(mWork);
    mState.counters["xerces"] = work / median(mXerces);
    mState.counters["expat"] = work / median(mExpat);
    mState.counters["bytes"] = work / median(mBytes);
    mState.counters["each"] = work / static_cast<double>(mState.range(0));
}

double BareParse::processorTime() {
    std::timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

void BareParse::parseWithXerces() const {
    xercesc::XercesDOMParser parser;
    parser.setValidationScheme(xercesc::XercesDOMParser::Val_Never);
    parser.setDoNamespaces(true);
    parser.parse(mPath.c_str());
    benchmark::DoNotOptimize(parser.getDocument());
}

void BareParse::parseWithExpat() const {
    auto const bytes = readBytes();
    auto* const parser = XML_ParserCreate(nullptr);
    benchmark::DoNotOptimize(XML_Parse(parser, bytes.data(), static_cast<int>(bytes.size()), XML_TRUE));
    XML_ParserFree(parser);
}

std::string BareParse::readBytes() const {
    std::ifstream file(mPath, std::ios::binary | std::ios::ate);
    std::string bytes(static_cast<std::size_t>(file.tellg()), '\0');
    file.seekg(0);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    benchmark::DoNotOptimize(bytes.data());
    return bytes;
}

} // namespace kivo::benchmarks
