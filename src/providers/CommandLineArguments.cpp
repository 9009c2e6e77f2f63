#include "kernel/kvProcessInit.h"

#include "providers/CommandLineArguments.h"

namespace kivo::configuration {

bool isFlag(std::string const& argument) { return argument.starts_with('-'); }

std::vector<CommandLineArgument> pairArguments(std::vector<std::string> const& arguments) {
    std::vector<CommandLineArgument> pairs;
    pairs.reserve(arguments.size());
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        auto const& argument = arguments[i];
        bool const hasValue = isFlag(argument) && i + 1 < arguments.size() && !isFlag(arguments[i + 1]);
        pairs.push_back({&argument, hasValue ? &arguments[i + 1] : nullptr, i});
        i += hasValue ? 1 : 0;
    }
    return pairs;
}

} // namespace kivo::configuration
