// A plug-in that offers a validator; built with the name of its validator, without one, or to end the process instead.

#include <configuration/Manager.h>
#include <configuration/Memory.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterValidator.h>

#include <cstdlib>
#include <memory>
#include <string>

using namespace kivo::configuration;

#define PLUGIN_ENTRY extern "C" __attribute__((visibility("default")))

PLUGIN_ENTRY char const* extensionPointName() { return "ParameterValidator"; }

#ifdef VALIDATOR_NAME
struct NeverRight final : ParameterValidator {
    using ParameterValidator::ParameterValidator;
    using ParameterValidator::validate;
    char* validate(char const* value) const override {
        return cloneString((std::string(value) + " is never right").c_str());
    }
};

PLUGIN_ENTRY void* createPlugin() {
    Manager::getInstance()->registerEnumDefinition(std::make_unique<ParameterEnumDefinition>(VALIDATOR_NAME).release());
    return static_cast<ParameterValidator*>(std::make_unique<NeverRight>(VALIDATOR_NAME).release());
}
#elif defined(EXIT_STATUS)
PLUGIN_ENTRY void* createPlugin() { std::exit(EXIT_STATUS); }
#else
PLUGIN_ENTRY void* createPlugin() { return nullptr; }
#endif
