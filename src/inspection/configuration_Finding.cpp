#include "kernel/kvProcessInit.h"

#include <configuration/Finding.h>

#include "schema/ContractChecks.h"

#include <string>
#include <utility>

namespace kivo::configuration {

class Finding::Impl {
public:
    Severity severity;
    std::string rule;
    std::string message;
    Origin origin;
    std::string suggestion; // empty: none
    std::string masked;     // empty: nothing in the message is secret
};

Finding::Finding(Severity severity, char const* rule, char const* message, Origin const& origin,
                 char const* suggestion) {
    KIVO_REQUIRE(rule != 0 && strlen(rule) > 0);
    KIVO_REQUIRE(message != 0);
    mImpl = std::make_shared<Impl const>(Impl{severity, rule, message, origin, suggestion ? suggestion : "", {}});
}

Finding::Finding(Finding const& other, std::string const& masked) {
    auto impl = std::make_shared<Impl>(*other.mImpl);
    impl->masked = masked;
    mImpl = std::move(impl);
}

Finding::Finding(Finding const&) noexcept = default;

Finding& Finding::operator=(Finding const&) noexcept = default;

Finding::~Finding() = default;

Finding::Severity Finding::getSeverity() const noexcept { return mImpl->severity; }

char const* Finding::getRule() const noexcept { return mImpl->rule.c_str(); }

char const* Finding::getMessage() const noexcept {
    return mImpl->masked.empty() ? revealMessage() : mImpl->masked.c_str();
}

char const* Finding::revealMessage() const noexcept { return mImpl->message.c_str(); }

Origin Finding::getOrigin() const { return mImpl->origin; }

char const* Finding::getSuggestion() const noexcept {
    return mImpl->suggestion.empty() ? nullptr : mImpl->suggestion.c_str();
}

} // namespace kivo::configuration
