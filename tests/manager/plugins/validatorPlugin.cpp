// A plug-in that offers a validator; built twice, with the name of its validator or without one.

#include <configuration/Manager.h>
#include <configuration/Memory.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterValidator.h>

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
#else
PLUGIN_ENTRY void* createPlugin() { return nullptr; }
#endif
