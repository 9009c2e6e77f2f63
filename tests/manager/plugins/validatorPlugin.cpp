// A plug-in that offers a validator; built several times, with the name of its validator or without one.

#include <configuration/Manager.h>
#include <configuration/Memory.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterValidator.h>

#include <memory>
#include <string>

namespace {

using namespace kivo::configuration;

class NeverRight final : public ParameterValidator {
public:
    explicit NeverRight(char const* name) : ParameterValidator(name) {}

    using ParameterValidator::validate;
    char* validate(char const* value) const override {
        return cloneString((std::string(value) + " is never right").c_str());
    }
};

} // namespace

#define PLUGIN_ENTRY extern "C" __attribute__((visibility("default")))

PLUGIN_ENTRY char const* extensionPointName() { return "ParameterValidator"; }

PLUGIN_ENTRY void* createPlugin() {
#ifdef VALIDATOR_NAME
    Manager::getInstance()->registerEnumDefinition(
        std::make_unique<ParameterEnumDefinition>("registered by the plug-in").release());
    return static_cast<ParameterValidator*>(std::make_unique<NeverRight>(VALIDATOR_NAME).release());
#else
    return nullptr;
#endif
}
