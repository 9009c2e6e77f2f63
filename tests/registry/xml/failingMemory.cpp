// Lets allocations fail, one in each run, while files are read and values are asked for: that has to end as
// std::bad_alloc, or not to matter. What was there before stays, nothing is there by halves, and the next run has to be
// as if nothing had happened.

#include <configuration/Manager.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>
#include <configuration/ValueProvider.h>

#include "support/Notation.h"
#include "support/Repeat.h"
#include "support/TemporaryInstallation.h"

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <functional>
#include <iterator>
#include <new>

namespace {

using namespace kivo::configuration;

/// Allocations until the one that fails; below 0: none does.
long remaining = -1;
long allocations = 0;

bool fails() {
    ++allocations;
    if (remaining < 0 || remaining-- > 0) {
        return false;
    }
    errno = ENOMEM;
    return true;
}

} // namespace

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

void* malloc(std::size_t size) { return fails() ? nullptr : __libc_malloc(size); }
void* calloc(std::size_t count, std::size_t size) { return fails() ? nullptr : __libc_calloc(count, size); }
void* realloc(void* block, std::size_t size) { return fails() ? nullptr : __libc_realloc(block, size); }
}

namespace {

using Lines = std::vector<std::string>;

std::string valuesOf(ValueProvider& provider) {
    ParameterValueGroup values(nullptr);
    try {
        provider.getValues(Manager::getInstance()->getSpecification("tool"), values, 0);
    } catch (std::exception const& error) {
        return error.what();
    }
    return kivo::test::toText(values);
}

/// All that is finished, sorted: what is registered, except for groups, and the providers that are enabled.
Lines describe() {
    auto& manager = *Manager::getInstance();
    Lines lines{"validators: " + std::to_string(manager.getNumberofValidators())};
    for (char const* id : {"own", "p", "l", "q0", "q9"}) {
        if (auto const* parameter = manager.getParameterItem(id)) {
            lines.push_back(manager.getRepresentation(*parameter));
        }
    }
    if (auto const* enumeration = manager.getEnumDefinition("e")) {
        lines.push_back("two: " + std::to_string(enumeration->getValue("two")));
    }
    if (auto const* tool = manager.getSpecification("tool")) {
        lines.push_back(manager.getRepresentation(*tool->getParameterGroup()));
    }
    for (unsigned long i = 0; i < manager.getNumberOfProviders(); ++i) {
        if (auto* provider = manager.getProvider(i); provider->getEnabled()) {
            lines.push_back(provider->getName() + valuesOf(*provider));
        }
    }
    std::ranges::sort(lines);
    return lines;
}

struct Kind {
    std::string label;
    long points;                   ///< how many of the allocations fail
    std::function<void()> prepare; ///< makes the state before
    std::function<std::string()> work;
};

/// What a kind's work gives, and the states before and after it.
struct Expected {
    Lines before;
    std::string outcome;
    Lines after;
};

std::string outcomeOf(Kind const& kind, long failing) {
    std::string outcome;
    allocations = 0;
    remaining = failing;
    try {
        outcome = kind.work();
        remaining = -1;
    } catch (std::bad_alloc const&) {
        remaining = -1;
        outcome = "std::bad_alloc";
    } catch (std::exception const& error) {
        remaining = -1;
        outcome = error.what() ? error.what() : "no message";
    }
    return outcome;
}

enum Result { UNHARMED, OUT_OF_MEMORY, LOADER_BROKEN, WRONG };

/// Lets one allocation fail. LOADER_BROKEN: the system's loader cannot open the module any more, as the next run tells.
Result runPoint(Kind const& kind, long failing, Expected const& expected) {
    auto const outcome = outcomeOf(kind, failing);
    auto const state = describe();
    bool const isRefused = outcome == "std::bad_alloc";
    bool const isKept = std::ranges::includes(state, expected.before) && std::ranges::includes(expected.after, state);
    if (state != expected.before) { // what a registry file declared stays, and cannot be declared again
        kind.prepare();
    }
    auto const again = outcomeOf(kind, -1);
    bool const isLoaderBroken = isRefused && again.starts_with("XML ERROR: ") && !dlopen(MODULE, RTLD_NOW);
    bool const isSame = again == expected.outcome && describe() == expected.after;
    if ((isRefused ? isKept : outcome == expected.outcome && state == expected.after) && (isSame || isLoaderBroken)) {
        return isLoaderBroken ? LOADER_BROKEN : isRefused ? OUT_OF_MEMORY : UNHARMED;
    }
    std::printf("%ld: %s%s; then: %s%s\n", failing, outcome.c_str(), isKept ? "" : " with another state", again.c_str(),
                isSame ? "" : " with another state");
    std::fflush(stdout);
    return WRONG;
}

/// In a process of its own: the system's loader keeps libraries loaded for which it lacked memory.
Result runPointApart(Kind const& kind, long failing, Expected const& expected) {
    auto const child = fork();
    if (child == 0) {
        _exit(runPoint(kind, failing, expected));
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? static_cast<Result>(WEXITSTATUS(status)) : WRONG;
}

/// @return whether all went as it must
bool sweep(Kind const& kind) {
    kind.prepare();
    outcomeOf(kind, -1); // what is made once
    kind.prepare();
    Expected expected{.before = describe(), .outcome = outcomeOf(kind, -1), .after = {}};
    auto const count = allocations;
    expected.after = describe();
    kind.prepare();
    std::array<int, 4> results{};
    auto const points = std::min(kind.points, count);
    for (long point = 0; point < points; ++point) {
        ++results.at(runPointApart(kind, count * point / points, expected));
    }
    std::printf("%s: %ld of %ld allocations; %d did not matter, %d std::bad_alloc, %d broke the loader, %d wrong\n",
                kind.label.substr(kind.label.find('\n') + 1, 60).c_str(), points, count, results[UNHARMED],
                results[OUT_OF_MEMORY], results[LOADER_BROKEN], results[WRONG]);
    std::fflush(stdout);
    return results[OUT_OF_MEMORY] > points / 2 && results[WRONG] == 0;
}

constexpr long ALL = 1000000; // of the allocations
constexpr long SOME = 40;

} // namespace

int main() {
    kivo::test::TemporaryInstallation const installation;
    auto& manager = *Manager::getInstance();
    std::ifstream stream(TEST_DATA_DIR "/xml/memory.crg");
    std::string const registry(std::istreambuf_iterator<char>(stream), {});
    auto const reset = [&](std::string const& file) {
        installation.write("etc/kivobase.crg", file);
        manager.reset();
    };
    auto const sweepLoad = [&](std::string const& file, long points) {
        auto const prepare = [&] { // a registry with an item of the application's own
            reset("<ConfigurationRegistry/>");
            kivo::test::createItem("own");
            installation.write("etc/kivobase.crg", file);
        };
        return sweep({file, points, prepare, [&] { return manager.loadDefaultConfigurationRegistry(), "loaded"; }});
    };
    auto const sweepValues = [&](std::string const& file, long points) {
        auto const values = installation.write("config/values.xml", file);
        auto const enable = [&] {
            char const* const arguments[] = {"tool", "-p", "two"};
            manager.enableConfiguration(false, values.c_str(), 3, arguments);
            return "enabled";
        };
        auto const request = [&] {
            ParameterValueGroup result(nullptr);
            manager.getValues("tool", result, 0);
            return kivo::test::toText(result);
        };
        auto const prepare = [&] { reset(registry); };
        auto const prepareRequest = [&] { prepare(), enable(); };
        return sweep({file, points, prepare, enable}) &&
               (points < ALL || sweep({"request", ALL, prepareRequest, request}));
    };
    bool isPassed = sweepLoad(registry, ALL);
    isPassed =
        sweepValues(kivo::test::expanded("<tool{10: q#='#'}><l value='/a'/><l value='/b'/><c q0='4'/></tool>"), ALL) &&
        isPassed;
    isPassed = sweepValues("<tool q0='many' unknown='u'/>", ALL) && isPassed;
    isPassed = sweepValues("<x:tool xmlns:x='u' q0='3'/>", SOME) && isPassed;
    for (char const* other : {"<x:ConfigurationRegistry xmlns:x='u'/>", "<ConfigurationRegistry",
                              "<!DOCTYPE ConfigurationRegistry [<!ENTITY e ''>]><ConfigurationRegistry a='&e;'/>"}) {
        isPassed = sweepLoad(other, SOME) && isPassed;
    }
    return isPassed ? 0 : 1;
}
