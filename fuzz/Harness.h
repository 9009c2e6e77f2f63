#pragma once

// What the fuzz targets share. A fault of the input is an exception of the std::exception family, which attempt()
// drops; anything else that goes wrong ends the process, and libFuzzer keeps the input.

#include "registry/xml/XmlScope.h"
#include "support/TemporaryInstallation.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>

namespace kivo::fuzz {

/// Runs a step that may refuse the input. @return whether it did not
template <class Step>
bool attempt(Step step) {
    try {
        step();
        return true;
    } catch (std::exception const&) {
        return false;
    }
}

/// An installation without a log, and the XML library open throughout: opening it takes longer than most inputs.
class Environment : public test::TemporaryInstallation {
private:
    test::ScopedEnvironment mNoLog{"KIVO_MAIN_LOG", std::nullopt};
    configuration::XmlScope mXml;
};

/// An input that begins with a byte of choices; as a digit it can be typed.
struct Input {
    Input(std::uint8_t const* data, std::size_t size);

    int flags = 0;              ///< bits 1 and 2: RESOLVE_FLAG_NAMES and STRICT_RECOGNITION
    bool isAlternative = false; ///< bit 4: what it means is the target's business
    std::string text;           ///< all other bytes
};

/// Sees to it that inputs leave nothing behind: what stays allocated over their processing, reachable or not, must not
/// add up. What a single input takes is limited by libFuzzer (-rss_limit_mb).
class MemoryWatch {
public:
    MemoryWatch();
    ~MemoryWatch();
    MemoryWatch(MemoryWatch const&) = delete;
    MemoryWatch& operator=(MemoryWatch const&) = delete;

private:
    std::size_t mBefore;
};

} // namespace kivo::fuzz
