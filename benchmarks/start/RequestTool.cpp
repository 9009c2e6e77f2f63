// Asks for the values of a tool again and again. A values file gives half of them, the command line a tenth; each is
// read.
//
//     request-tool flat|containers <number of parameters> <number of requests>

#include "Installation.h"
#include "Tool.h"
#include "support/TemporaryInstallation.h"

#include <configuration/ParameterValueGroup.h>
#include <configuration/Value.h>
#include <configuration/ValueGroup.h>

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace {

using namespace kivo::benchmarks;
using namespace kivo::configuration;

/// @param firstInContainer the index of the first parameter that is in a container
std::string valuesFor(Subjects const& subjects, std::size_t firstInContainer) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<tool";
    auto const begin = subjects.fromCommandLine();
    for (auto i = begin; i < begin + subjects.fromApplication(); ++i) {
        if (beginsContainer(i, firstInContainer)) {
            text += (i > begin ? "/>\n    <" : ">\n    <") + containerName(i);
        }
        text += " " + subjects.names[i] + "=\"" + subjects.texts[i] + "\"";
    }
    return text + (firstInContainer < subjects.count() ? "/>\n</tool>\n" : "/>\n");
}

long sumOf(ValueGroup const& tool, Subjects const& subjects, std::size_t firstInContainer) {
    auto group = tool;
    long sum = 0;
    for (std::size_t i = 0; i < subjects.count(); ++i) {
        if (beginsContainer(i, firstInContainer)) {
            group = tool.getValueGroup(containerName(i).c_str());
        }
        sum += group.getValue(subjects.names[i].c_str()).asInteger();
    }
    return sum;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: request-tool flat|containers <number of parameters> <number of requests>\n";
        return 2;
    }
    useEmptyInstallation();
    Subjects const subjects(static_cast<std::size_t>(std::atol(argv[2])));
    bool const isFlat = std::string_view(argv[1]) == "flat";
    auto const firstInContainer = isFlat ? subjects.count() : subjects.fromCommandLine();
    auto& manager = *Manager::getInstance();
    declareTool(manager, subjects, firstInContainer);
    kivo::test::TemporaryDirectory const directory;
    auto const file = directory.write("values.xml", valuesFor(subjects, firstInContainer));
    auto const arguments = subjects.argumentsWith("-");
    auto const pointers = pointersTo(arguments);
    long sum = 0;
    for (auto requests = std::atol(argv[3]); requests > 0; --requests) {
        manager.enableConfiguration(false, file.c_str(), static_cast<unsigned int>(pointers.size()), pointers.data());
        ParameterValueGroup settings(nullptr);
        manager.getValues(SPECIFICATION, settings, 0);
        ValueGroup const tool(static_cast<ParameterValueGroup const*>(settings.getItem(SPECIFICATION)));
        sum += sumOf(tool, subjects, firstInContainer);
    }
    std::cout << sum << '\n';
}
