#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationParameterException.h>
#include <configuration/ParameterErrors.h>

#include "schema/ContractChecks.h"
#include "schema/MessageFormat.h"

#include <string>
#include <vector>

namespace kivo::configuration {

class ParameterErrors::Impl {
public:
    std::vector<std::string> mMessages;
};

ParameterErrors::ParameterErrors() : mImpl(std::make_unique<Impl>()) {}

ParameterErrors::ParameterErrors(ParameterErrors const& other) : mImpl(std::make_unique<Impl>(*other.mImpl)) {}

ParameterErrors& ParameterErrors::operator=(ParameterErrors const& other) {
    if (this != &other) {
        mImpl = std::make_unique<Impl>(*other.mImpl);
    }
    return *this;
}

ParameterErrors::~ParameterErrors() = default;

void ParameterErrors::addError(char const* format, ...) {
    KIVO_REQUIRE(format != 0 && strlen(format) > 0);
    MessageBuffer message;
    std::va_list arguments;
    va_start(arguments, format);
    message.format(format, arguments);
    va_end(arguments);
    mImpl->mMessages.emplace_back(message.get());
}

unsigned long ParameterErrors::getNumberOfErrors() const { return mImpl->mMessages.size(); }

char const* ParameterErrors::getError(unsigned long index) const {
    KIVO_REQUIRE(index < getNumberOfErrors());
    return mImpl->mMessages[index].c_str();
}

void ParameterErrors::throwIfErrors() const {
    if (getNumberOfErrors() > 0) {
        throw ConfigurationParameterException(*this, nullptr);
    }
}

void ParameterErrors::clear() { mImpl->mMessages.clear(); }

std::string composeMessage(ParameterErrors const& errors) {
    auto const count = errors.getNumberOfErrors();
    if (count == 0) {
        return "No errors were detected";
    }
    std::string message = errors.getError(0);
    for (unsigned long i = 1; i < count; ++i) {
        message += '\n';
        message += errors.getError(i);
    }
    return message;
}

} // namespace kivo::configuration
