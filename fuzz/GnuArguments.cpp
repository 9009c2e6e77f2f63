// After the byte of choices, each line of the input is an argument in GNU style. What is wrong with the arguments is
// said with their places; what they give can be written as arguments again, in the plainest form, and then means the
// same. The whole request and an inspection get them, too.

#include "Harness.h"
#include "ToolSpecification.h"

#include "providers/GnuArguments.h"

#include <configuration/CommandLineValueProvider.h>
#include <configuration/ConfigurationException.h>
#include <configuration/Inspection.h>
#include <configuration/InspectionInputs.h>
#include <configuration/ParameterErrors.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include <cstdlib>
#include <numeric>
#include <sstream>

namespace kivo::fuzz {

namespace {

using namespace configuration;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

GnuArguments makeGnuArguments(std::vector<std::string> texts) {
    GnuArguments arguments{std::move(texts), {}, true};
    arguments.indexes.resize(arguments.texts.size());
    std::iota(arguments.indexes.begin(), arguments.indexes.end(), 0UL);
    return arguments;
}

std::vector<std::string> readLines(std::string const& text) {
    std::vector<std::string> lines{"tool"};
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line.substr(0, line.find('\0')));
    }
    return lines;
}

/// Writes values as flags: each text with an equals sign, and none as a flag alone.
void write(ParameterValueGroup const& group, std::string const& prefix, std::vector<std::string>& flags) {
    for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
        auto const& item = *group.getItem(i);
        auto const name = prefix + item.getParameterItemId();
        if (item.getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP) {
            write(static_cast<ParameterValueGroup const&>(item), name + '.', flags);
            continue;
        }
        auto const& value = static_cast<ParameterValue const&>(item);
        for (unsigned long j = 0; j < value.getNumberOfValues(); ++j) {
            char const* const text = value.getValue(j, true);
            flags.push_back("--" + name + (text ? std::string("=") + text : ""));
        }
    }
}

void checkSplit(ToolSpecification const& specifications, GnuArguments const& arguments, int flags) {
    auto const textOf = [&](ParameterValueGroup const& values) {
        return std::string(specifications.manager.getRepresentation(values));
    };
    ParameterErrors faults;
    auto const split = splitGnuArguments(arguments, specifications.tool, flags, faults);
    for (unsigned long i = 0; i < faults.getNumberOfErrors(); ++i) {
        auto const place = faults.getOrigin(i).getArgument();
        require(place > 0 && place < arguments.texts.size());
    }
    std::vector<std::string> written{"tool"};
    write(*split.values, "", written);
    ParameterErrors none;
    auto const again = splitGnuArguments(makeGnuArguments(written), specifications.tool, flags, none);
    require(none.getNumberOfErrors() == 0 && textOf(*again.values) == textOf(*split.values));
}

/// Faults of users are exceptions of the library, and of no other kind.
template <class Step>
void allowFaults(Step step) {
    try {
        step();
    } catch (ConfigurationException const&) {
    }
}

void checkRequest(ToolSpecification const& specifications, GnuArguments const& arguments, int flags) {
    std::vector<char const*> argv;
    for (auto const& text : arguments.texts) {
        argv.push_back(text.c_str());
    }
    auto const count = static_cast<unsigned int>(argv.size());
    auto& manager = specifications.manager;
    Inspection const inspection(
        specifications.tool,
        InspectionInputs().setCommandLineStyle(GNU_COMMAND_LINE).setArguments(count, argv.data()).setFlags(flags));
    bool isRefused = true;
    allowFaults([&] {
        manager.enableConfiguration(false, nullptr, count, argv.data());
        ParameterValueGroup values(nullptr);
        manager.getValues(&specifications.tool, values, flags);
        isRefused = false;
    });
    // An inspection of inputs cannot know whether the tool has a version: to it, the flag is no fault.
    bool const isFaultOfBoth = isRefused && manager.getVersionText();
    require(!isFaultOfBoth || inspection.getNumberOfFindings(Finding::ERROR_SEVERITY) > 0);
    if (manager.getNumberOfProviders() > 0) {
        collectAndRead(manager, specifications.tool, flags);
        collectAndRead(manager, specifications.part, flags);
    }
}

void checkRemoval(ToolSpecification const& specifications, GnuArguments arguments) {
    for (std::size_t i = 1; i < arguments.texts.size(); ++i) {
        auto const flag = parseGnuFlag(arguments.texts[i]);
        auto const name = std::string(flag ? flag->name : "");
        if (!name.empty() && removeGnuFlag(arguments, specifications.tool, name)) {
            require(!removeGnuFlag(arguments, specifications.tool, name));
            return;
        }
    }
}

} // namespace

} // namespace kivo::fuzz

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using namespace kivo::fuzz;
    static Environment const environment;
    static ToolSpecification const specifications(environment);
    MemoryWatch const watch;
    auto& manager = specifications.manager;
    manager.setCommandLineStyle(kivo::configuration::GNU_COMMAND_LINE);

    Input const input(data, size);
    manager.setVersionText(input.isAlternative ? "tool 1.0" : nullptr);
    auto const arguments = makeGnuArguments(readLines(input.text));
    checkSplit(specifications, arguments, input.flags);
    checkRemoval(specifications, arguments);
    checkRequest(specifications, arguments, input.flags);
    manager.enableConfiguration(false, nullptr, 0, nullptr); // destroys the providers
    return 0;
}
