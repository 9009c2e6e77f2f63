#include "kernel/kvProcessInit.h"

#include "inspection/Masking.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterErrors.h>

#include "inspection/GivenItems.h"
#include "inspection/SecretArguments.h"
#include "providers/CommandLineArguments.h"
#include "schema/Rule.h"
#include "schema/SecretMask.h"
#include "visitors/FirstPhaseValidationVisitor.h"

namespace kivo::configuration {

namespace {

/// Whether messages about a rule tell something of a text. They may come from a validator that throws.
bool isAboutText(Rule rule) {
    return rule == Rule::INVALID_VALUE || rule == Rule::OUT_OF_RANGE || rule == Rule::REJECTED_VALUE ||
           rule == Rule::UNKNOWN_LABEL;
}

} // namespace

std::string maskedText(Parameter const& parameter, std::string const& text) {
    return parameter.isSensitive() ? SECRET_MASK : text;
}

std::string maskedMessage(ParameterErrors const& faults, unsigned long index, GivenItem const* item,
                          SecretArguments const& arguments) {
    auto const& origin = faults.getStoredOrigin(index);
    if (faults.getRule(index) == Rule::UNEXPECTED_ARGUMENT) {
        auto const argument = arguments.maskedArgument(origin);
        return argument ? composeUnexpectedArgument(*argument) : std::string();
    }
    if (faults.getRule(index) == Rule::UNKNOWN_SETTING && item) {
        auto const name = arguments.maskedName(origin, item->id);
        return name ? FirstPhaseValidationVisitor::composeUnknownSetting(*name) : std::string();
    }
    auto const& masked = faults.getMaskedError(index);
    bool const isUnmasked = masked.empty() && isAboutText(faults.getRule(index)) && item && item->parameter &&
                            item->parameter->isSensitive();
    return isUnmasked ? std::string(item->parameter->getName()) + ": \"" + SECRET_MASK + "\" is refused" : masked;
}

} // namespace kivo::configuration
