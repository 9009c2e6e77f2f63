#include "BareParse.h"
#include "Installation.h"
#include "Tool.h"
#include "support/TemporaryInstallation.h"

#include <benchmark/benchmark.h>

#include <configuration/Manager.h>

#include <array>

namespace {

using namespace kivo::benchmarks;
using kivo::configuration::Manager;

std::string parameterElement(std::string const& name, std::size_t index) {
    static constexpr std::array TYPES = {"bool", "int", "uint", "double", "string"};
    std::string const type = TYPES[index % TYPES.size()];
    return "        <Parameter id=\"" + name + "\" name=\"" + name + "\" type=\"" + type +
           "\" valueName=\"value\" default=\"1\"\n                   description=\"What the parameter is for\"/>\n";
}

/// Declares the parameters and, in containers, a tool that takes each of them.
std::string registryOf(Subjects const& subjects) {
    std::string parameters;
    std::string references;
    for (std::size_t i = 0; i < subjects.count(); ++i) {
        auto const& name = subjects.names[i];
        parameters += parameterElement(name, i);
        if (beginsContainer(i, 0)) {
            auto const container = containerName(i);
            references += (i > 0 ? "            </Container>\n" : "");
            references += "            <Container id=\"" + container + "\" name=\"" + container +
                          "\" description=\"A part of the tool\" optional=\"true\">\n";
        }
        references += "                <ParameterRef id=\"" + name + "\" optional=\"true\"/>\n";
    }
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ConfigurationRegistry>\n    <Parameters>\n" + parameters +
           "    </Parameters>\n    <Specifications>\n"
           "        <Specification id=\"tool\" name=\"tool\" description=\"The tool\">\n" +
           references +
           "            </Container>\n        </Specification>\n    </Specifications>\n</ConfigurationRegistry>\n";
}

/// All of what a start does to load an installation's registry files, of which there is one.
void loadRegistryFile(benchmark::State& state) {
    useEmptyInstallation();
    kivo::test::TemporaryDirectory const directory;
    auto const file = directory.write("kivobase.crg", registryOf(Subjects(static_cast<std::size_t>(state.range(0)))));
    auto& manager = *Manager::getInstance();
    BareParse bareParse(state, file);
    for (auto _ : state) {
        manager.reset();
        kivo::test::ScopedEnvironment const etc("KIVO_ETC_DIR", directory.at(""));
        bareParse.compareWith([&manager] { manager.loadDefaultConfigurationRegistry(); });
    }
    manager.reset();
}

BENCHMARK(loadRegistryFile)->RangeMultiplier(10)->Range(10, 10000)->UseManualTime();

} // namespace
