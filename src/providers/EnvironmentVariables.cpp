#include "kernel/kvProcessInit.h"

#include "providers/EnvironmentVariables.h"

#include <configuration/ConfigurationException.h>

#include <algorithm>
#include <unordered_set>

#include <sys/auxv.h>
#include <unistd.h>

namespace kivo::configuration {

namespace {

bool isLetterOrDigit(char character) {
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z');
}

/// A name that a shell can set. An underscore at the end would be taken for the one after the prefix.
bool isPrefix(std::string_view text) {
    return !text.empty() && !(text.front() >= '0' && text.front() <= '9') && text.back() != '_' &&
           std::ranges::all_of(text, [](char each) { return isLetterOrDigit(each) || each == '_'; });
}

} // namespace

EnvironmentVariables readEnvironment(std::string_view prefix) {
    bool const isPrivileged = getauxval(AT_SECURE) != 0;
    return readEnvironment(prefix, isPrivileged ? nullptr : environ);
}

EnvironmentVariables readEnvironment(std::string_view prefix, char const* const* environment) {
    EnvironmentVariables read{std::string(prefix), {}};
    if (!isPrefix(prefix)) {
        throw ConfigurationException("\"%s\" is not a valid prefix of environment variables", read.prefix.c_str());
    }
    auto const beginning = read.prefix + "_";
    std::unordered_set<std::string_view> names; // the first of a name counts, as for getenv()
    for (; environment && *environment; ++environment) {
        std::string_view const entry(*environment);
        auto const equals = entry.find('=');
        if (!entry.starts_with(beginning) || equals == std::string_view::npos) {
            continue;
        }
        auto const name = entry.substr(0, equals);
        auto const text = entry.substr(equals + 1);
        if (names.insert(name).second && !text.empty()) {
            read.variables.push_back({std::string(name), std::string(text)});
        }
    }
    return read;
}

} // namespace kivo::configuration
