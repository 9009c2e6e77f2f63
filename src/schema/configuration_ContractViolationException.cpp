#include "kernel/kvProcessInit.h"

#include <configuration/ContractViolationException.h>

#include "schema/ContractChecks.h"

namespace kivo {

ContractViolationException::ContractViolationException(char const* staticText) noexcept : mMessage(staticText) {}

ContractViolationException::~ContractViolationException() = default;

char const* ContractViolationException::what() const noexcept { return mMessage; }

void throwContractViolation(char const* staticText) { throw ContractViolationException(staticText); }

} // namespace kivo
