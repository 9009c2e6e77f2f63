// A plug-in that offers the validator "timeWindow": a time of the day, a hyphen and another one, such as 22:00-04:30.

#include <configuration/Export.h>
#include <configuration/Memory.h>
#include <configuration/ParameterValidator.h>

#include <memory>
#include <regex>
#include <string>

using namespace kivo::configuration;

namespace {

class TimeWindowValidator final : public ParameterValidator {
public:
    TimeWindowValidator() : ParameterValidator("timeWindow") {}

    using ParameterValidator::validate; // the check of all texts of a value stays as it is

    char* validate(char const* text) const override {
        static std::regex const window("(([01][0-9]|2[0-3]):[0-5][0-9]|24:00)-(([01][0-9]|2[0-3]):[0-5][0-9]|24:00)");
        if (std::regex_match(text, window)) {
            return nullptr;
        }
        return cloneString(('"' + std::string(text) + "\" is not a time window such as 22:00-04:30").c_str());
    }
};

} // namespace

extern "C" {

// What this plug-in extends.
KIVO_CONFIGURATION_API char const* extensionPointName() { return "ParameterValidator"; }

// The manager takes ownership of the validator.
KIVO_CONFIGURATION_API void* createPlugin() {
    std::unique_ptr<ParameterValidator> validator = std::make_unique<TimeWindowValidator>();
    return validator.release();
}
}
