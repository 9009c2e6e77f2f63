#pragma once

#include <configuration/Origin.h>

#include <stdexcept>
#include <string>

namespace kivoconfig {

/// The call itself is wrong: standard error says so.
class CallFault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The installation's registry does not load: a finding, which belongs to the report. Its text has a line for each
/// fault.
class RegistryFault : public std::runtime_error {
public:
    RegistryFault(std::string const& message, kivo::configuration::Origin const& origin)
        : std::runtime_error(message), mOrigin(origin) {}

    /// The declaration at fault, as far as it is known.
    kivo::configuration::Origin const& getOrigin() const { return mOrigin; }

private:
    kivo::configuration::Origin mOrigin;
};

} // namespace kivoconfig
