#include <configuration/Flags.h>
#include <configuration/Manager.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/Specification.h>
#include <configuration/ValueGroup.h>
#include <iostream>
using namespace kivo::configuration;

int main(int argc, char** argv) try {
    auto* root = ParameterGroup::CreateContainer("copytable", "copytable", "Copies a table", false, false);
    root->addItem(Parameter::Create("table", "table", "The table to copy", false, false, Parameter::STRING_PARAMETER,
                                    nullptr, "name", nullptr, false));
    root->addItem(Parameter::Create("streams", "streams", "Streams that copy at once", true, false,
                                    Parameter::UINT_PARAMETER, "4", "count", nullptr, false));
    Manager& manager = *Manager::getInstance();
    manager.registerSpecification(new Specification("copytable", "Copies a table"));
    manager.enableConfiguration(false, nullptr, static_cast<unsigned int>(argc), argv);
    ValueGroup settings = manager.getValueGroup("copytable", true, RESOLVE_FLAG_NAMES | STRICT_RECOGNITION);
    std::cout << "Copying " << settings.getValue("table").asString() << " in "
              << settings.getValue("streams").asUnsignedInteger() << " streams" << std::endl;
    return std::cout ? 0 : 1; // 1: standard output is closed or full
} catch (std::exception const& faults) {
    std::cerr << faults.what() << '\n';
    return 2;
}
