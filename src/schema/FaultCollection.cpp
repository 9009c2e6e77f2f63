#include "kernel/kvProcessInit.h"

#include "schema/FaultCollection.h"

#include <configuration/ConfigurationParameterException.h>
#include <configuration/ContractViolationException.h>

#include <new>

namespace kivo::configuration {

namespace {

void add(ParameterErrors& errors, Rule rule, StoredOrigin const& origin, StoredOrigin const& otherwise,
         char const* message) {
    errors.addFault(rule, origin.isKnown() ? origin : otherwise, "%s", message ? message : "");
}

} // namespace

void addException(ParameterErrors& errors, Rule rule, StoredOrigin const& origin, std::exception const& exception) {
    if (dynamic_cast<std::bad_alloc const*>(&exception)) {
        throw;
    }
    if (auto const* several = dynamic_cast<ConfigurationParameterException const*>(&exception)) {
        auto const& faults = several->getErrors();
        for (unsigned long i = 0; i < faults.getNumberOfErrors(); ++i) {
            auto const own = faults.getRule(i);
            add(errors, own == Rule::NONE ? rule : own, faults.getStoredOrigin(i), origin, faults.getError(i));
            errors.setMaskedError(errors.getNumberOfErrors() - 1, faults.getMaskedError(i));
        }
    } else if (auto const* one = dynamic_cast<ConfigurationException const*>(&exception)) {
        add(errors, rule, StoredOrigin(one->getOrigin()), origin, one->what());
    } else {
        add(errors, rule, origin, origin, exception.what());
    }
}

} // namespace kivo::configuration
