#pragma once

#include <configuration/ParameterVisitor.h>

#include "schema/NameComparison.h"

#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

namespace kivo::configuration {

class ParameterValueGroup;

/// Counts, for all flags of a group of values, what a ParameterSearchVisitor would find for each: one walk over the
/// schema serves all of them. Reads only.
class FlagMatches final : public ParameterVisitor {
public:
    /// The parameters whose names begin with a flag.
    struct Match {
        Parameter const* first = nullptr;
        unsigned long count = 0;
        bool isFormerName = false; ///< the whole flag is the former name of a parameter
    };

    /// @param flags a group whose values are named by flags as typed
    explicit FlagMatches(ParameterValueGroup const& flags);

    bool visitParameter(Parameter const& parameter) override;

    /// What was found for one of the flags.
    Match const& operator[](std::string const& flag) { return mMatches[flag]; }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const noexcept { return hashIgnoringCase(name); }
    };
    struct Equal {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const noexcept { return equalIgnoringCase(a, b); }
    };

    std::unordered_map<std::string, Match, Hash, Equal> mMatches;
    std::set<std::size_t> mSizes; // of the flags
    bool mSeeksFormerNames;
};

} // namespace kivo::configuration
