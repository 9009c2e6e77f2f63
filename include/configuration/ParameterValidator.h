#pragma once

#include <configuration/Export.h>

#include <memory>

namespace kivo::configuration {

class ParameterValue;

/// A named check that values undergo beside their type. Derive from it, implement the check of one text, and register
/// the object with Manager::addValidator(), which takes ownership, or offer it from a plug-in.
///
/// One object serves every parameter that names it, from any thread: keep no state between calls.
class KIVO_CONFIGURATION_API ParameterValidator {
public:
    /// @param name key by which parameters name the validator; letter case is ignored
    /// @throws kivo::ContractViolationException "name != 0 && strlen(name) > 0"
    explicit ParameterValidator(char const* name);
    virtual ~ParameterValidator();

    /// Checks every text of a value with validate(char const*), in order. Entries without a text are passed over.
    /// @return null when all pass, else a new array for the caller to free with `delete[]`: the messages, each followed
    ///         by a line break
    virtual char* validate(ParameterValue const& value) const;
    /// Checks one text.
    /// @return null when it is acceptable, else one message in a new array for the caller to free with `delete[]`
    ///         (cloneString() makes one)
    virtual char* validate(char const* value) const = 0;

    /// The name given at construction. Lives as long as the validator.
    char const* getName() const;

    ParameterValidator(ParameterValidator const&) = delete;
    ParameterValidator& operator=(ParameterValidator const&) = delete;

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
