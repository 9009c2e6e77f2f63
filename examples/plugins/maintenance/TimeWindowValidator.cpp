// A plug-in that offers the validator "timeWindow": a time of the day, a hyphen and another one, such as 22:00-04:30.

#include <configuration/Export.h>
#include <configuration/Memory.h>
#include <configuration/ParameterValidator.h>

#include <memory>
#include <string>
#include <string_view>

using namespace kivo::configuration;

namespace {

/// Whether a text is a time from 00:00 to 24:00. A regular expression would say it shorter, but making one takes longer
/// than reading the file that names the validator.
bool isTimeOfDay(std::string_view text) {
    auto const isDigit = [text](std::size_t position) { return text[position] >= '0' && text[position] <= '9'; };
    return text.size() == 5 && isDigit(0) && isDigit(1) && text[2] == ':' && isDigit(3) && isDigit(4) &&
           (text == "24:00" || (text < "24:00" && text.substr(3) < "60"));
}

class TimeWindowValidator final : public ParameterValidator {
public:
    TimeWindowValidator() : ParameterValidator("timeWindow") {}

    using ParameterValidator::validate; // the check of all texts of a value stays as it is

    char* validate(char const* text) const override {
        std::string_view const window(text);
        if (window.size() == 11 && window[5] == '-' && isTimeOfDay(window.substr(0, 5)) &&
            isTimeOfDay(window.substr(6))) {
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
