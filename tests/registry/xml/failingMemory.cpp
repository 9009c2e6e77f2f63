// Lets allocations fail, one in each run, while files are read: that has to end as std::bad_alloc, or not to matter,
// and the next run has to be as if nothing had happened.

#include <configuration/Manager.h>

#include "support/TemporaryInstallation.h"

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <functional>
#include <new>

namespace {

using kivo::configuration::Manager;

constexpr long POINTS = 10; // of each kind of file

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

std::string outcomeOf(std::function<void()> const& work, long failing) {
    std::string outcome = "done";
    allocations = 0;
    remaining = failing;
    try {
        work();
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

/// Runs one point in a process of its own: the system's loader keeps libraries loaded for which it lacked memory.
/// @return 0: the failure did not matter; 1: std::bad_alloc; 2: the same, but the loader cannot open the module any
/// more, which the next run tells; 3: something else
int runPoint(std::function<void()> const& work, long failing, std::string const& expected) {
    auto const child = fork();
    if (child == 0) {
        auto const outcome = outcomeOf(work, failing);
        auto const afterwards = outcomeOf(work, -1);
        bool const isRefused = outcome == "std::bad_alloc";
        bool const isLoaderBroken = isRefused && afterwards.starts_with("XML ERROR: ") && !dlopen(MODULE, RTLD_NOW);
        bool const isRight = (outcome == expected || isRefused) && (afterwards == expected || isLoaderBroken);
        isRight ? 0 : std::printf("%ld: %s; then: %s\n", failing, outcome.c_str(), afterwards.c_str());
        std::fflush(stdout);
        _exit(isRight ? isRefused + isLoaderBroken : 3);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 3;
}

/// @return whether all went as it must
bool sweep(char const* label, std::function<void()> const& work) {
    outcomeOf(work, -1); // what is made once
    auto const expected = outcomeOf(work, -1);
    auto const count = allocations;
    std::array<int, 4> results{};
    for (long point = 0; point < POINTS; ++point) {
        ++results.at(static_cast<std::size_t>(runPoint(work, count * point / POINTS, expected)));
    }
    std::printf("%s: %ld allocations; %d did not matter, %d std::bad_alloc, %d broke the loader, %d wrong\n", label,
                count, results[0], results[1], results[2], results[3]);
    std::fflush(stdout);
    return results[1] > POINTS / 2 && results[3] == 0;
}

} // namespace

int main() {
    kivo::test::TemporaryInstallation const installation;
    auto& manager = *Manager::getInstance();
    auto const load = [&] {
        manager.reset();
        manager.loadDefaultConfigurationRegistry();
    };
    auto const enable = [&] {
        manager.enableConfiguration(false, installation.at("config/values.xml").c_str(), 0, nullptr);
    };
    bool isPassed = true;
    for (char const* content : {"<ConfigurationRegistry><Parameters/></ConfigurationRegistry>",
                                "<x:ConfigurationRegistry xmlns:x='u'/>", "<ConfigurationRegistry",
                                "<!DOCTYPE ConfigurationRegistry [<!ENTITY e ''>]><ConfigurationRegistry a='&e;'/>"}) {
        installation.write("etc/kivobase.crg", content);
        installation.write("config/values.xml", content);
        isPassed = sweep(content, load) && isPassed;
        isPassed = sweep(content, enable) && isPassed;
    }
    return isPassed ? 0 : 1;
}
