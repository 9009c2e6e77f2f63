#include "kernel/kvProcessInit.h"

#include <configuration/ConfigurationParameterException.h>
#include <configuration/ParameterErrors.h>

#include "schema/ContractChecks.h"
#include "schema/MessageFormat.h"
#include "schema/Rule.h"
#include "schema/StoredOrigin.h"

#include <string>
#include <vector>

namespace kivo::configuration {

class ParameterErrors::Impl {
public:
    struct Error {
        std::string message;
        StoredOrigin origin;
        std::string suggestion; // empty: none
        std::string masked;     // empty: nothing in the message is secret
        Rule rule;
    };

    void add(Rule rule, StoredOrigin origin, char const* format, std::va_list arguments)
        __attribute__((format(printf, 4, 0))) {
        MessageBuffer message;
        message.format(format, arguments);
        mErrors.push_back({message.get(), std::move(origin), {}, {}, rule});
    }

    std::vector<Error> mErrors;
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
    std::va_list arguments;
    va_start(arguments, format);
    mImpl->add(Rule::NONE, StoredOrigin(), format, arguments);
    va_end(arguments);
}

void ParameterErrors::addErrorAt(Origin const& origin, char const* format, ...) {
    KIVO_REQUIRE(format != 0 && strlen(format) > 0);
    std::va_list arguments;
    va_start(arguments, format);
    mImpl->add(Rule::NONE, StoredOrigin(origin), format, arguments);
    va_end(arguments);
}

void ParameterErrors::addFault(Rule rule, StoredOrigin const& origin, char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    mImpl->add(rule, origin, format, arguments);
    va_end(arguments);
}

void ParameterErrors::setSuggestion(unsigned long index, char const* suggestion) {
    KIVO_REQUIRE(index < getNumberOfErrors());
    mImpl->mErrors[index].suggestion = suggestion ? suggestion : "";
}

unsigned long ParameterErrors::getNumberOfErrors() const { return mImpl->mErrors.size(); }

char const* ParameterErrors::getError(unsigned long index) const {
    KIVO_REQUIRE(index < getNumberOfErrors());
    return mImpl->mErrors[index].message.c_str();
}

Origin ParameterErrors::getOrigin(unsigned long index) const {
    KIVO_REQUIRE(index < getNumberOfErrors());
    return mImpl->mErrors[index].origin.toOrigin();
}

char const* ParameterErrors::getSuggestion(unsigned long index) const {
    KIVO_REQUIRE(index < getNumberOfErrors());
    auto const& suggestion = mImpl->mErrors[index].suggestion;
    return suggestion.empty() ? nullptr : suggestion.c_str();
}

void ParameterErrors::setMaskedError(unsigned long index, std::string const& message) {
    mImpl->mErrors[index].masked = message;
}

void ParameterErrors::setStoredOrigin(unsigned long index, StoredOrigin const& origin) {
    mImpl->mErrors[index].origin = origin;
}

std::string const& ParameterErrors::getMaskedError(unsigned long index) const { return mImpl->mErrors[index].masked; }

Rule ParameterErrors::getRule(unsigned long index) const { return mImpl->mErrors[index].rule; }

StoredOrigin const& ParameterErrors::getStoredOrigin(unsigned long index) const { return mImpl->mErrors[index].origin; }

void ParameterErrors::throwIfErrors() const {
    if (getNumberOfErrors() > 0) {
        throw ConfigurationParameterException(*this, nullptr);
    }
}

void ParameterErrors::clear() { mImpl->mErrors.clear(); }

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
