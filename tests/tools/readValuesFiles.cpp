// Reads values files as a tool does, and prints what is wrong with each:
//
//   read-values-files <specification> <file>...

#include <configuration/Flags.h>
#include <configuration/Manager.h>
#include <configuration/ParameterValueGroup.h>

#include <exception>
#include <iostream>

using namespace kivo::configuration;

int main(int argc, char** argv) {
    Manager& manager = *Manager::getInstance();
    for (int i = 2; i < argc; ++i) {
        std::cout << "== " << argv[i] << '\n';
        try {
            manager.enableConfiguration(false, argv[i], 0, nullptr);
            ParameterValueGroup values(nullptr);
            manager.getValues(argv[1], values, STRICT_RECOGNITION);
        } catch (std::exception const& faults) {
            std::cout << faults.what() << '\n';
        }
    }
}
