// A tool that starts, reads three of its settings, and ends.

#include <configuration/Manager.h>
#include <configuration/Value.h>
#include <configuration/ValueGroup.h>

#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    using namespace kivo::configuration;
    try {
        auto& manager = *Manager::getInstance();
        manager.enableConfiguration(false, nullptr, static_cast<unsigned int>(argc), argv);
        auto const settings = manager.getValueGroup("tool", true, 0);
        long sum = 0;
        for (char const* name : {"parameter00000", "parameter00004", "parameter00009"}) {
            sum += settings.getValue(name).asInteger();
        }
        std::cout << sum << '\n';
    } catch (std::exception const& error) {
        std::cerr << "start-tool: " << error.what() << '\n';
        return 1;
    }
}
