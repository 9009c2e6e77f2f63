#pragma once

#include <configuration/ParameterValueVisitor.h>

#include <string>
#include <unordered_map>

namespace kivo::configuration {

class ParameterErrors;
class ParameterItem;

/// Looks at one tree of values, not at the schema, and reports values that nobody recognised and bounded items given
/// more than once:
/// "\"%s\" is not a recognized parameter", "\"%s\" cannot be provided more than once". Reads only.
class FirstPhaseValidationVisitor final : public ParameterValueVisitor {
public:
    explicit FirstPhaseValidationVisitor(ParameterErrors& errors);

    bool visitGroupStart(ParameterValueGroup& group) override;
    bool visitParameterValue(ParameterValue& value) override;

    static std::string composeUnknownSetting(std::string const& id);

private:
    struct Occurrences {
        ParameterValueGroup const* first = nullptr;
        ParameterValueGroup const* second = nullptr;
    };

    Occurrences const& occurrencesOf(ParameterValueGroup const& parent, ParameterItem const* container);

    ParameterErrors& mErrors;
    /// The first two child groups by schema item, found once for each parent: looking for every child would be
    /// quadratic.
    std::unordered_map<ParameterValueGroup const*, std::unordered_map<ParameterItem const*, Occurrences>> mOccurrences;
};

} // namespace kivo::configuration
