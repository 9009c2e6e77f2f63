#include "kernel/kvProcessInit.h"

#include "providers/HelpRequest.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

#include "schema/NameComparison.h"
#include "schema/StoredOrigin.h"
#include "values/ChildSearch.h"

namespace kivo::configuration {

namespace {

/// Kept settings refer to these parameters, so they live as long as the process.
Parameter const& requestParameter(char const* name) {
    constexpr auto type = Parameter::BOOLEAN_PARAMETER;
    static Parameter const help(HELP, HELP, "Help is asked for", true, false, type, nullptr, nullptr, nullptr, false);
    static Parameter const version(VERSION, VERSION, "The version is asked for", true, false, type, nullptr, nullptr,
                                   nullptr, false);
    return equalIgnoringCase(name, HELP) ? help : version;
}

} // namespace

bool readsAsTrue(ParameterValueGroup const& group, char const* name) {
    auto const* value = group.getValue(name);
    return value && value->getNumberOfValues() > 0 && value->getBooleanValue(0);
}

std::unique_ptr<ParameterValue> makeRequest(char const* name, StoredOrigin const& origin) {
    auto request = std::make_unique<ParameterValue>(&requestParameter(name), "true");
    request->setStoredOrigin(0, origin);
    return request;
}

bool asksForVersion(ParameterValueGroup const& group) {
    auto const* const value = findChildValue(group, VERSION);
    return value && value->getParameter() == &requestParameter(VERSION);
}

} // namespace kivo::configuration
