// After the byte of choices, each line of the input is an argument of a tool. The arguments go to a provider, which may
// be strict; or, as the alternative, to the manager, which enables configuration as in a tool, with values files
// around.

#include "Harness.h"
#include "ToolSpecification.h"

#include <configuration/CommandLineValueProvider.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <sstream>
#include <vector>

namespace kivo::fuzz {

namespace {

using namespace configuration;

class Arguments {
public:
    explicit Arguments(std::string const& lines) {
        std::istringstream stream(lines);
        for (std::string line; std::getline(stream, line);) {
            mTexts.push_back(line);
        }
        mPointers.push_back("tool");
        std::ranges::transform(mTexts, std::back_inserter(mPointers), [](auto const& text) { return text.c_str(); });
    }

    int count() const { return static_cast<int>(mPointers.size()); }
    char const* const* values() const { return mPointers.data(); }

private:
    std::vector<std::string> mTexts;
    std::vector<char const*> mPointers;
};

Environment const& environmentWithValuesFiles() {
    static Environment const environment;
    environment.write("config/machine.config", R"(<tool int="1" left="2"><uint value="3"/><many text="m"/></tool>)");
    environment.write("config/values.xml", R"(<tool text="t" oid="#1-2-3-4"><many uint="5"/></tool>)");
    return environment;
}

void collectFromProvider(ToolSpecification const& specifications, Arguments const& arguments, int flags) {
    Manager& manager = specifications.manager;
    auto* provider = std::make_unique<CommandLineValueProvider>(1).release();
    manager.registerProvider(provider);
    provider->enableProvider(arguments.count(), arguments.values(), flags);
    collectAndRead(manager, specifications.tool, flags);
    if (provider->removeParameter(&specifications.tool, "help")) {
        collectAndRead(manager, specifications.tool, flags);
    }
    collectAndRead(manager, specifications.part, flags);
}

void collectAsTool(ToolSpecification const& specifications, Arguments const& arguments, int flags) {
    Manager& manager = specifications.manager;
    manager.enableConfiguration(true, nullptr, static_cast<unsigned int>(arguments.count()), arguments.values());
    collectAndRead(manager, specifications.tool, flags);
}

} // namespace

} // namespace kivo::fuzz

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using namespace kivo::fuzz;
    static ToolSpecification const specifications(environmentWithValuesFiles());
    MemoryWatch const watch;

    Input const input(data, size);
    Arguments const arguments(input.text);
    auto const collect = input.isAlternative ? collectAsTool : collectFromProvider;
    attempt([&] { collect(specifications, arguments, input.flags); });
    specifications.manager.enableConfiguration(false, nullptr, 0, nullptr); // destroys the providers
    return 0;
}
