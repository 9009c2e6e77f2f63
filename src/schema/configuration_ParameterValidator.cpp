#include "kernel/kvProcessInit.h"

#include <configuration/Memory.h>
#include <configuration/ParameterValidator.h>
#include <configuration/ParameterValue.h>

#include "schema/ContractChecks.h"

#include <string>

namespace kivo::configuration {

class ParameterValidator::Impl {
public:
    std::string mName;
};

ParameterValidator::ParameterValidator(char const* name) {
    KIVO_REQUIRE(name != 0 && strlen(name) > 0);
    mImpl.reset(new Impl{name});
}

ParameterValidator::~ParameterValidator() = default;

char const* ParameterValidator::getName() const { return mImpl->mName.c_str(); }

char* ParameterValidator::validate(ParameterValue const& value) const {
    std::string messages;
    for (unsigned long i = 0; i < value.getNumberOfValues(); ++i) {
        char const* text = value.getValue(i, false);
        if (!text) {
            continue;
        }
        if (std::unique_ptr<char[]> const message{validate(text)}) {
            messages += message.get();
            messages += '\n';
        }
    }
    return messages.empty() ? nullptr : cloneString(messages.c_str());
}

} // namespace kivo::configuration
