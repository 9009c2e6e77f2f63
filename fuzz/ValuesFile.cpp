// After the byte of choices, the input is the values file of a tool. The file is fixed up for the specification that
// is asked for first; the alternative is to ask in the other order.

#include "Harness.h"
#include "ToolSpecification.h"

#include <configuration/ParameterValueGroup.h>
#include <configuration/XmlFileValueProvider.h>

namespace kivo::fuzz {

namespace {

using namespace configuration;

/// What an application does that reads a file itself.
void validate(Manager& manager, Specification const& specification, std::string const& file, int flags) {
    XmlFileValueProvider provider(1);
    provider.enableProvider(file.c_str(), flags);
    ParameterValueGroup values(provider.getDataCache());
    manager.validateValues(&specification, values, flags);
}

} // namespace

} // namespace kivo::fuzz

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using namespace kivo::fuzz;
    static Environment const environment;
    static ToolSpecification const specifications(environment);
    MemoryWatch const watch;

    Input const input(data, size);
    auto const file = environment.write("config/values.xml", input.text);
    Manager& manager = specifications.manager;
    if (attempt([&] { manager.enableConfiguration(false, file.c_str(), 0, nullptr); })) {
        collectAndRead(manager, input.isAlternative ? specifications.part : specifications.tool, input.flags);
        collectAndRead(manager, input.isAlternative ? specifications.tool : specifications.part, input.flags);
        attempt([&] { validate(manager, specifications.tool, file, input.flags); });
    }
    manager.enableConfiguration(false, nullptr, 0, nullptr); // destroys the providers
    return 0;
}
