#include "kernel/kvProcessInit.h"

#include <configuration/ContractViolationException.h>

#include "schema/ContractChecks.h"

namespace kivo {

ContractViolationException::ContractViolationException(char const* staticText) noexcept : mMessage(staticText) {}

ContractViolationException::~ContractViolationException() = default;

char const* ContractViolationException::what() const noexcept { return mMessage; }

configuration::Origin ContractViolationException::getOrigin() const noexcept { return mOrigin; }

void ContractViolationException::setOrigin(configuration::Origin const& origin) noexcept { mOrigin = origin; }

void throwContractViolation(char const* staticText) { throw ContractViolationException(staticText); }

} // namespace kivo
