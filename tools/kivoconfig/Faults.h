#pragma once

#include <stdexcept>

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
    using std::runtime_error::runtime_error;
};

} // namespace kivoconfig
