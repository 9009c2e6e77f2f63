// The whole input is the main registry file of an installation that a manager starts from. Every specification that
// comes of it is described in all ways and asked for its defaults. Before, the file is inspected, which has to find an
// error exactly when the manager does not start.

#include "Harness.h"

#include <configuration/Manager.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/RegistryInspection.h>
#include <configuration/Specification.h>

#include <cstdlib>
#include <set>

namespace kivo::fuzz {

namespace {

using namespace configuration;

/// What stands between quotes, the ids of specifications among it.
std::set<std::string> quotedTexts(std::string const& text) {
    std::set<std::string> quoted;
    for (char const quote : {'"', '\''}) {
        for (auto begin = text.find(quote); begin != std::string::npos; begin = text.find(quote, begin + 1)) {
            auto const end = text.find(quote, begin + 1);
            if (end != std::string::npos && end > begin + 1) {
                quoted.insert(text.substr(begin + 1, end - begin - 1));
            }
        }
    }
    return quoted;
}

void describe(Manager& manager, Specification const& specification) {
    char const* const provider = Manager::COMMAND_LINE_PROVIDER_NAME;
    char const* const id = specification.getId();
    attempt([&] { manager.composeUsageMessage(provider, id); });
    attempt([&] { manager.composeHelpMessage(provider, id, 1, 0); });
    attempt([&] { manager.composeHelpMessage(provider, id, 80, 30); });
    attempt([&] { manager.getRepresentation(*specification.getParameterGroup()); });
    attempt([&] {
        ParameterValueGroup defaults(nullptr);
        manager.getValues(&specification, defaults, 0);
        manager.getRepresentation(defaults);
    });
}

} // namespace

} // namespace kivo::fuzz

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using namespace kivo::fuzz;
    static Environment const environment;
    MemoryWatch const watch;

    std::string const content(data, data + size);
    environment.write("etc/kivobase.crg", content);
    bool const isFaulty = RegistryInspection().getNumberOfFindings(Finding::ERROR_SEVERITY) > 0;
    if (attempt([] { Manager::getInstance(); }) == isFaulty) { // when it throws, what was loaded before stays
        std::abort();
    }
    Manager& manager = *Manager::getInstance();
    for (auto const& id : quotedTexts(content)) {
        Specification const* specification = nullptr;
        attempt([&] { specification = manager.getSpecification(id.c_str()); });
        if (specification) {
            describe(manager, *specification);
        }
    }
    Manager::shutdown();
    return 0;
}
