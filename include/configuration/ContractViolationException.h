#pragma once

#include <configuration/Export.h>
#include <configuration/Origin.h>

#include <exception>

/// What is used beyond the configuration library, too.
namespace kivo {

/// Thrown by a public operation whose precondition does not hold: a null pointer, an empty name, an index out of range.
/// The operation has changed nothing. The text is "Contract violation: " and the failed condition in double quotes,
/// spelled as in the operation's documentation.
class KIVO_CONFIGURATION_API ContractViolationException : public std::exception {
public:
    /// @param staticText text that lives as long as the process; it is neither copied nor freed
    explicit ContractViolationException(char const* staticText) noexcept;
    /// Refers to the same text.
    ContractViolationException(ContractViolationException const& other) noexcept = default;
    /// Refers to the same text from now on.
    ContractViolationException& operator=(ContractViolationException const& other) noexcept = default;
    ~ContractViolationException() override;

    /// The text given at construction.
    char const* what() const noexcept override;

    /// Where the declaration of a registry file stands that broke the condition; otherwise of an unknown source.
    configuration::Origin getOrigin() const noexcept;
    /// Says where.
    void setOrigin(configuration::Origin const& origin) noexcept;

private:
    char const* mMessage;
    configuration::Origin mOrigin;
};

} // namespace kivo
