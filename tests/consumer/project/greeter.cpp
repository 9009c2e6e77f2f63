// A small tool that describes its two settings in code and reads them from its command line.

#include <configuration/CommandLineValueProvider.h>
#include <configuration/ConfigurationException.h>
#include <configuration/Flags.h>
#include <configuration/Manager.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/Specification.h>
#include <configuration/ValueGroup.h>

#include <iostream>
#include <memory>

using namespace kivo::configuration;

namespace {

void describeSettings(Manager& manager) {
    ParameterGroup* root = ParameterGroup::CreateContainer("greeter", "greeter", "Greets somebody", false, false);
    root->addItem(Parameter::Create("who", "who", "Whom to greet", false, false, Parameter::STRING_PARAMETER, nullptr,
                                    "name", nullptr, false));
    root->addItem(Parameter::Create("times", "times", "How many times", true, false, Parameter::UINT_PARAMETER, "1",
                                    nullptr, nullptr, false));
    manager.registerSpecification(std::make_unique<Specification>("greeter", "Greets somebody").release());
}

void readCommandLine(Manager& manager, int argc, char const* const* argv) {
    auto provider = std::make_unique<CommandLineValueProvider>(1);
    provider->enableProvider(argc, argv, STRICT_RECOGNITION);
    manager.registerProvider(provider.release());
}

} // namespace

int main(int argc, char** argv) {
    try {
        Manager& manager = *Manager::getInstance();
        describeSettings(manager);
        readCommandLine(manager, argc, argv);
        ValueGroup settings = manager.getValueGroup("greeter", true, RESOLVE_FLAG_NAMES | STRICT_RECOGNITION);
        std::cout << "Hello " << settings.getValue("who").asString() << ", "
                  << settings.getValue("times").asUnsignedInteger() << " times\n";
        return 0;
    } catch (ConfigurationException const& exception) {
        std::cerr << exception.what() << '\n';
        return 2;
    }
}
